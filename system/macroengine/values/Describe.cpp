// The text of a value for debuggers and traces.

#include <ClassDescriptors.h>
#include <UI_MacroVariant.h>

#include <cstdint>

#include "values/FastPath.h"

namespace {

SYS_String hexText(const char* label, std::uint64_t number) {
    SYS_String text("[");
    text << label << ": 0x";
    text.Add(number, 16);
    return text << "]";
}

SYS_String pointerText(const char* label, const void* pointer) {
    return hexText(label, reinterpret_cast<std::uintptr_t>(pointer));
}

SYS_String quotedText(const char* label, char quote, const SYS_String& content) {
    SYS_String text("[");
    return text << label << ": " << quote << content << quote << "]";
}

SYS_String objectText(const UI_MacroVariant& object) {
    const ScriptDebugger::iApplicationClass* descriptor = object.GetMacroDescriptor();
    return descriptor ? descriptor->GetName() : SYS_String("Macro object");
}

} // namespace

SYS_String UI_MacroVariant::DescribeVar() const {
    const UI_MacroVariant* value = &liveElement(*this);
    while (value && value->m_Type == vvtReference && !value->IsMacroEval()) {
        value = value->m_Target;
        if (value)
            value = &liveElement(*value);
    }
    if (!value)
        return SYS_String();
    return value == this ? describeKind() : value->DescribeVar();
}

SYS_String UI_MacroVariant::describeKind() const {
    if (IsMacroEval())
        return objectText(*this);
    SYS_String text;
    switch (m_Type) {
    case vvtEmpty:
    case vvtMissing:
        return "[undefined]";
    case vvtObject:
        return pointerText("object", m_Payload.dispatch);
    case vvtFunction:
        return quotedText("function", '\'', m_Text);
    case vvtString:
        return quotedText("string", '"', m_Text);
    case vvtScript:
        return quotedText("script", '"', m_Text);
    case vvtInteger:
        return text << "[number: " << m_Payload.integer << "]";
    case vvtDouble:
        return text << "[number: " << m_Payload.real << "]";
    case vvtBoolean:
        return m_Payload.integer ? "True" : "False";
    case vvtArray:
        return text << "[array: dim(" << GetArrNumDims() << "), bounds(" << Arrval().GetLowerBound()
                    << "," << Arrval().GetUpperBound() << ")]";
    case vvtHandle:
        return hexText("handle",
                       static_cast<std::uint64_t>(static_cast<std::int32_t>(m_Payload.integer)));
    case vvtUnknown:
        return pointerText("unknown", GetUnknownVal());
    case vvtReference:
        break;
    }
    return SYS_String();
}
