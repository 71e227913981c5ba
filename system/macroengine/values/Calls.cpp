// Member access, calls and indexes on a value, by its kind.

#include <Automation.h>
#include <SCL_Assert.h>
#include <SYS_Unicode.h>
#include <UI_MacroProcessor.h>
#include <UI_MacroVariant.h>

#include "values/Failure.h"
#include "values/Parts.h"

namespace {

[[noreturn]] void throwWithName(const SYS_String& message, const char* name) {
    SYS_String text = message;
    text += ": ";
    text += name;
    if (MacroSupport* processor = MacroSupport::GetProcessor())
        processor->OnError(text);
    throw MacroException(text, SYS_String(), 0, nullptr);
}

/// The text has no place for the name, so it goes along with it.
UI_MacroVariant failUnknownMember(const char* name) {
    try {
        return Fail(errMemberNotFound);
    } catch (MacroException& error) {
        error.SetDetail(SYS_String("The object has no member '") + name + "'");
        throw;
    }
}

} // namespace

UI_MacroVariant UI_MacroVariant::Evaluate(const char* name, UI_MacroVariant* args, int argc) {
    const bool hasName = name && *name;
    switch (m_Type) {
    case vvtFunction: {
        if (hasName)
            throwWithName(GetMacroErrorText(errMemberNotFound), name);
        if (!args && m_Parts) {
            argc = m_Parts->array.GetCount();
            args = argc ? m_Parts->array.WritableData() : nullptr;
        }
        if (m_Payload.handler)
            return m_Payload.handler(args ? argc : 0, args);
        auto* processor = dynamic_cast<MacroSupport*>(m_Target.Get());
        if (!processor)
            throwWithName("Function deleted", m_Text);
        return processor->Call(m_Text, args, args ? argc : 0);
    }
    case vvtArray:
        return EvaluateArray(this, args, argc);
    case vvtObject:
        break;
    case vvtEmpty:
    case vvtString:
    case vvtInteger:
    case vvtDouble:
    case vvtBoolean:
    case vvtReference:
    case vvtMissing:
    case vvtHandle:
    case vvtScript:
    case vvtUnknown:
        if (hasName)
            throwWithName(GetMacroErrorText(errMemberNotFound), name);
        return UI_MacroVariant(*this);
    }

    UI_MacroVariant object(*this);
    object.invokeObjectIfNeeded();
    if (!hasName)
        return object;
    if (object.m_Type != vvtObject)
        return object.Evaluate(name, args, argc);
    if (!object.m_Payload.dispatch)
        return Fail(errObjectIsNothing);
    std::u16string wide = SYS_ToUtf16(name);
    LPOLESTR names[1] = {wide.data()};
    DISPID id = 0;
    const HRESULT result =
        object.m_Payload.dispatch->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
    if (result == DISP_E_UNKNOWNNAME)
        return failUnknownMember(name);
    if (FAILED(result))
        return Fail("GetIDsOfNames failed");
    object.m_IdOrArrayType = id;
    object.m_FlagsOrDims =
        args && argc == 0 ? DISPATCH_METHOD : DISPATCH_METHOD | DISPATCH_PROPERTYGET;
    object.copyAgr(args, args ? argc : 0);
    return object;
}
