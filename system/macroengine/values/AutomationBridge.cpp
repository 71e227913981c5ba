// How values call automation objects, and how they make and find them.

#include <Automation.h>
#include <SCL_Assert.h>
#include <SYS_Unicode.h>
#include <UI_MacroVariant.h>

#include <memory>
#include <string>
#include <utility>

#include "values/Bridge.h"
#include "values/Failure.h"
#include "values/Parts.h"

namespace {

constexpr DWORD kThisMachine = CLSCTX_INPROC_SERVER | CLSCTX_INPROC_HANDLER | CLSCTX_LOCAL_SERVER;

bool isText(const char* text) { return text && *text; }

bool isOmitted(const UI_MacroVariant& argument) {
    const UI_MacroVariant* body = argument.getBody();
    return body && body->GetType() == vvtMissing && !body->IsMacroEval();
}

/// The arguments of one call as the object wants them: the last first, a new value before all.
class CallArguments {
public:
    CallArguments() = default;
    CallArguments(const CallArguments&) = delete;
    CallArguments& operator=(const CallArguments&) = delete;
    ~CallArguments() {
        for (UINT i = 0; i < m_Count; ++i)
            if (m_Values[i].vt > VT_R8) // the tags up to here own nothing
                VariantClear(&m_Values[i]);
    }

    /// False if there are too many.
    bool Fill(const UI_MacroArray& arguments, const UI_MacroVariant* newValue) {
        const int count = arguments.GetCount();
        const int total = count + (newValue ? 1 : 0);
        if (!SCL_ASSERT(total <= kMost, "Too many arguments for an automation object")) {
            ::Fail(errIncorrectArgument);
            return false;
        }
        while (m_Count < static_cast<UINT>(total))
            VariantInit(&m_Values[m_Count++]);
        for (int i = 0; i < count; ++i)
            set(m_Values[total - 1 - i], arguments.GetData()[i]);
        if (newValue)
            set(m_Values[0], *newValue);
        return true;
    }

    UINT GetCount() const { return m_Count; }
    DISPPARAMS Get(DISPID* newValueId) {
        return {m_Values, newValueId, m_Count, newValueId ? 1u : 0u};
    }

private:
    static constexpr int kMost = 64;

    static void set(VARIANT& slot, const UI_MacroVariant& argument) {
        if (isOmitted(argument)) {
            slot.vt = VT_ERROR;
            slot.scode = DISP_E_PARAMNOTFOUND;
        } else {
            slot = ToVariant(argument).Detach();
        }
    }

    VARIANT m_Values[kMost];
    UINT m_Count = 0;
};

/// What an object may tell about its failure. It goes along with the text that macros get.
struct FailureInfo : EXCEPINFO {
    FailureInfo() : EXCEPINFO{} {}
    FailureInfo(const FailureInfo&) = delete;
    FailureInfo& operator=(const FailureInfo&) = delete;
    ~FailureInfo() {
        SysFreeString(bstrSource);
        SysFreeString(bstrDescription);
        SysFreeString(bstrHelpFile);
    }

    SYS_String Describe() {
        if (pfnDeferredFillIn)
            std::exchange(pfnDeferredFillIn, nullptr)(this);
        SYS_String text = automation::TextOf(bstrSource);
        const SYS_String description = automation::TextOf(bstrDescription);
        if (!text.IsEmpty() && !description.IsEmpty())
            text += ": ";
        return text += description;
    }
};

void failCall(HRESULT failure) {
    switch (failure) {
    case DISP_E_MEMBERNOTFOUND:
        Fail(errMemberNotFound);
        break;
    case DISP_E_BADPARAMCOUNT:
        Fail(errIncorrectArgument);
        break;
    case DISP_E_TYPEMISMATCH:
        Fail("Type mismatch");
        break;
    default:
        Fail("Invoke failed");
        break;
    }
}

void reportFailure(HRESULT failure, const SYS_String& detail) {
    try {
        failCall(failure);
    } catch (MacroException& error) {
        error.SetDetail(detail);
        throw;
    }
}

/// What is known of an argument that the object refused; `place` counts from the last one.
SYS_String describeArgument(HRESULT failure, UINT place, const DISPPARAMS& parameters) {
    const bool isMissing = failure == DISP_E_PARAMNOTOPTIONAL || failure == DISP_E_PARAMNOTFOUND;
    SYS_String text;
    if ((!isMissing && failure != DISP_E_TYPEMISMATCH) || place >= parameters.cArgs)
        return text;
    if (place < parameters.cNamedArgs)
        text = "The new value";
    else
        text << "Argument " << static_cast<int>(parameters.cArgs - place);
    return text += isMissing ? " is missing" : " is of a wrong type";
}

/// One call; a new value makes it a put. False after a failure.
bool invoke(IDispatch* dispatch, DISPID member, WORD flags, const UI_MacroArray& stored,
            const UI_MacroVariant* newValue, COleVariant& result) {
    if (!dispatch) {
        Fail(errObjectIsNothing);
        return false;
    }
    // The call may change the value that it comes from.
    const Counted<IDispatch> object(dispatch);
    const UI_MacroArray arguments(stored);
    CallArguments list;
    if (!list.Fill(arguments, newValue))
        return false;
    DISPID named = DISPID_PROPERTYPUT;
    DISPPARAMS parameters = list.Get(newValue ? &named : nullptr);
    FailureInfo info;
    UINT wrongArgument = list.GetCount(); // none, unless the object tells
    const HRESULT outcome = object->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags,
                                           &parameters, &result, &info, &wrongArgument);
    if (SUCCEEDED(outcome))
        return true;
    reportFailure(outcome, outcome == DISP_E_EXCEPTION
                               ? info.Describe()
                               : describeArgument(outcome, wrongArgument, parameters));
    return false;
}

bool classOf(const char* progId, CLSID& classId) {
    if (!isText(progId))
        return false;
    const std::u16string wide = SYS_ToUtf16(progId);
    return SUCCEEDED(CLSIDFromProgID(wide.c_str(), &classId));
}

/// The value becomes the object if it has an automation face.
int takeObject(UI_MacroVariant& value, IUnknown* object) {
    const Counted<IDispatch> dispatch = QueryFor<IDispatch>(object, IID_IDispatch);
    if (!dispatch)
        return 0;
    value.Clear();
    value.SetObjectVal(dispatch.Get(), true);
    return 1;
}

int takeFromFile(UI_MacroVariant& value, const char* path, CLSID* classId) {
    std::u16string wide = SYS_ToUtf16(path);
    MULTI_QI query{&IID_IDispatch, nullptr, S_OK};
    const HRESULT outcome = CoGetInstanceFromFile(nullptr, classId, nullptr, CLSCTX_LOCAL_SERVER,
                                                  STGM_READWRITE, wide.data(), 1, &query);
    Counted<IUnknown> made;
    *made.Out() = query.pItf;
    return SUCCEEDED(outcome) ? takeObject(value, made.Get()) : 0;
}

int takeFromServer(UI_MacroVariant& value, REFCLSID classId) {
    Counted<IUnknown> made;
    void* object = nullptr;
    if (FAILED(CoCreateInstance(classId, nullptr, CLSCTX_LOCAL_SERVER, IID_IUnknown, &object)))
        return 0;
    *made.Out() = static_cast<IUnknown*>(object);
    return takeObject(value, made.Get());
}

SYS_String displayName(IMoniker& moniker, IBindCtx& context) {
    LPOLESTR wide = nullptr;
    if (FAILED(moniker.GetDisplayName(&context, nullptr, &wide)) || !wide)
        return {};
    const std::unique_ptr<OLECHAR, decltype(&CoTaskMemFree)> owner(wide, &CoTaskMemFree);
    return SYS_FromUtf16(wide);
}

int takeRunning(UI_MacroVariant& value, const char* path) {
    Counted<IBindCtx> context;
    Counted<IRunningObjectTable> table;
    Counted<IEnumMoniker> monikers;
    if (!isText(path) || FAILED(CreateBindCtx(0, context.Out())) ||
        FAILED(context->GetRunningObjectTable(table.Out())) ||
        FAILED(table->EnumRunning(monikers.Out())))
        return 0;
    const SYS_StrNoCase wanted(path);
    for (;;) {
        Counted<IMoniker> moniker;
        if (monikers->Next(1, moniker.Out(), nullptr) != S_OK)
            return 0;
        Counted<IUnknown> running;
        if (wanted == displayName(*moniker.Get(), *context.Get()) &&
            SUCCEEDED(table->GetObject(moniker.Get(), running.Out())))
            return takeObject(value, running.Get());
    }
}

} // namespace

// --- conversion ------------------------------------------------------------------------------

void UI_MacroVariant::init(const tagVARIANT& value) { FromVariant(value, *this); }

void UI_MacroVariant::Init(const COleVariant& value) { FromVariant(value, *this); }

UI_MacroVariant::operator COleVariant() const { return ToVariant(*this); }

// --- calls -----------------------------------------------------------------------------------

void UI_MacroVariant::invokeObjectIfNeeded() {
    if (m_Type != vvtObject || GetWFlags() == 0)
        return;
    COleVariant result;
    if (invoke(m_Payload.dispatch, m_IdOrArrayType, static_cast<WORD>(GetWFlags()),
               static_cast<const UI_MacroVariant*>(this)->Arrval(), nullptr, result))
        init(result);
    else
        Clear();
}

void UI_MacroVariant::putObjectVal(const UI_MacroVariant& value, bool byRef) {
    COleVariant result;
    invoke(GetDispatchVal(), m_IdOrArrayType,
           byRef ? DISPATCH_PROPERTYPUTREF : DISPATCH_PROPERTYPUT,
           static_cast<const UI_MacroVariant*>(this)->Arrval(), &value, result);
}

// --- objects ---------------------------------------------------------------------------------

int UI_MacroVariant::CreateObject(const char* progId) {
    CLSID classId;
    return classOf(progId, classId) ? CreateObject(classId) : 0;
}

int UI_MacroVariant::CreateObject(const _GUID& classId) {
    Counted<IUnknown> made;
    void* object = nullptr;
    if (FAILED(CoCreateInstance(classId, nullptr, kThisMachine, IID_IDispatch, &object)))
        return 0;
    *made.Out() = static_cast<IDispatch*>(object);
    return takeObject(*this, made.Get());
}

int UI_MacroVariant::CreateObject(const char* progId, const char* server) {
    if (!isText(server))
        return CreateObject(progId);
    CLSID classId;
    if (!classOf(progId, classId))
        return 0;
    std::u16string name = SYS_ToUtf16(server);
    COSERVERINFO machine{0, name.data(), nullptr, 0};
    MULTI_QI query{&IID_IDispatch, nullptr, S_OK};
    const HRESULT outcome =
        CoCreateInstanceEx(classId, nullptr, CLSCTX_REMOTE_SERVER, &machine, 1, &query);
    Counted<IUnknown> made;
    *made.Out() = query.pItf;
    return SUCCEEDED(outcome) ? takeObject(*this, made.Get()) : 0;
}

int UI_MacroVariant::GetActiveObject(const char* progId) {
    CLSID classId;
    return classOf(progId, classId) ? GetActiveObject(classId) : 0;
}

int UI_MacroVariant::GetActiveObject(const _GUID& classId) {
    Counted<IUnknown> active;
    if (FAILED(::GetActiveObject(classId, nullptr, active.Out())))
        return 0;
    return takeObject(*this, active.Get());
}

int UI_MacroVariant::GetObject(const char* path, const char* className) {
    CLSID classId;
    const bool hasClass = classOf(className, classId);
    if (isText(path)) {
        if (takeFromFile(*this, path, hasClass ? &classId : nullptr))
            return 1;
    } else if (hasClass && takeFromServer(*this, classId)) {
        return 1;
    }
    return takeRunning(*this, path);
}
