#include "AutomationFace.h"

#include <AutomationCounted.h>
#include <AutomationObject.h>
#include <MacroException.h>
#include <SYS_Unicode.h>
#include <UI_MacroProcessor.h>

#include <map>
#include <new>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "values/Access.h"
#include "values/Bridge.h"
#include "values/CopyOut.h"

namespace {

/// Every name that was ever asked for, with its number. Numbers serve all faces.
class NameNumbers {
public:
    DISPID Get(LPCOLESTR wide) {
        const SYS_StrNoCase name(SYS_FromUtf16(wide));
        const auto [place, isNew] = m_Numbers.try_emplace(name, 0);
        if (isNew) {
            m_Names.push_back(&place->first);
            place->second = static_cast<DISPID>(m_Names.size());
        }
        return place->second;
    }
    /// Null for a number that was never given out.
    const SYS_String* Find(DISPID number) const {
        if (number == DISPID_NEWENUM)
            return &m_Enumerator;
        const auto place = static_cast<std::size_t>(number) - 1;
        return number > 0 && place < m_Names.size() ? m_Names[place] : nullptr;
    }

private:
    std::map<SYS_StrNoCase, DISPID> m_Numbers;
    std::vector<const SYS_StrNoCase*> m_Names;
    const SYS_String m_Enumerator = "_NewEnum";
};

NameNumbers& nameNumbers() {
    static auto& numbers = *new NameNumbers;
    return numbers;
}

class Face;
struct FaceTable {
    std::unordered_map<const UI_MacroVariant*, Face*> byObject;
    std::unordered_set<const IDispatch*> all;
};

FaceTable& faces() {
    static auto& table = *new FaceTable;
    return table;
}

/// An argument list in the order of the macro language.
class ArgumentList {
public:
    ArgumentList(const DISPPARAMS& parameters, UINT skip) {
        m_Values.resize(parameters.cArgs - skip);
        for (std::size_t i = 0; i < m_Values.size(); ++i) {
            const VARIANT& value = parameters.rgvarg[parameters.cArgs - 1 - i];
            if (value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND)
                m_Values[i].SetType(vvtMissing);
            else
                m_Values[i].init(value);
        }
    }

    UI_MacroVariant* Get() { return m_Values.empty() ? nullptr : m_Values.data(); }
    int GetCount() const { return static_cast<int>(m_Values.size()); }

private:
    std::vector<UI_MacroVariant> m_Values;
};

HRESULT tellError(const SYS_String& text, EXCEPINFO* exception) {
    static const SYS_String notFound = GetMacroErrorText(errMemberNotFound);
    if (MacroSupport* processor = MacroSupport::GetProcessor())
        processor->ClearLastError(); // from here on it is the caller's error, who may live with it
    if (text.View().starts_with(notFound.View()))
        return DISP_E_MEMBERNOTFOUND;
    if (exception) {
        *exception = EXCEPINFO{};
        exception->scode = E_FAIL;
        exception->bstrSource = automation::NewText("macro object");
        exception->bstrDescription = automation::NewText(text);
    }
    return DISP_E_EXCEPTION;
}

class Face final : public automation::CountedInterface<IDispatch, IID_IDispatch> {
public:
    explicit Face(MacroEval& object)
        : m_Object(static_cast<UI_MacroVariant*>(&object)), m_Place(&object) {}

    MacroEval* GetObject() const { return static_cast<MacroEval*>(m_Object.getRefVal()); }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        if (!count)
            return E_POINTER;
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
        if (info)
            *info = nullptr;
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* ids) override {
        if (!names || !ids || count == 0 || !names[0])
            return E_INVALIDARG;
        for (UINT i = 0; i < count; ++i)
            ids[i] = DISPID_UNKNOWN;
        if (!*names[0])
            return DISP_E_UNKNOWNNAME;
        try {
            ids[0] = nameNumbers().Get(names[0]);
        } catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        }
        return count == 1 ? S_OK : DISP_E_UNKNOWNNAME; // arguments have no names
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments,
                                     VARIANT* result, EXCEPINFO* exception, UINT*) override;

private:
    ~Face() override {
        FaceTable& table = faces();
        table.all.erase(this);
        const auto entry = table.byObject.find(m_Place);
        if (entry != table.byObject.end() && entry->second == this)
            table.byObject.erase(entry); // else another object stands there by now
    }

    static UI_MacroVariant evaluate(MacroEval& object, const SYS_String* name, ArgumentList& list,
                                    bool& isKnown);
    static HRESULT put(UI_MacroVariant& member, const VARIANT& source, bool byReference);

    UI_MacroVariant m_Object;             // a Reference: what lives by its References stays alive
    const UI_MacroVariant* const m_Place; // where the object stands or stood; only compared
};

UI_MacroVariant Face::evaluate(MacroEval& object, const SYS_String* name, ArgumentList& list,
                               bool& isKnown) {
    if (name)
        return object.Evaluate(*name, list.Get(), list.GetCount());
    UI_MacroVariant self(static_cast<UI_MacroVariant*>(&object));
    UI_MacroVariant value;
    isKnown = self.evaluateDereference(list.Get(), list.GetCount(), value, derefAny);
    return value;
}

HRESULT Face::put(UI_MacroVariant& member, const VARIANT& source, bool byReference) {
    if (member.GetType() == vvtFunction || LeadsToConstant(member))
        return DISP_E_MEMBERNOTFOUND;
    UI_MacroVariant* target = &member;
    if (member.GetType() == vvtReference)
        target = member.getRefVal();
    else if (member.GetType() != vvtObject || member.GetWFlags() == 0)
        target = nullptr;
    if (!target)
        return DISP_E_MEMBERNOTFOUND;
    UI_MacroVariant value;
    value.init(source);
    if (!byReference)
        target->Assign(value);
    else if (UI_MacroVariant* object = value.getObject(false))
        target->SetObjectRef(*object);
    else
        target->SetObjectRef(UI_MacroVariant::Nothing());
    return S_OK;
}

HRESULT Face::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                     EXCEPINFO* exception, UINT*) {
    constexpr WORD puts = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;
    const DISPPARAMS none{};
    const DISPPARAMS& parameters = arguments ? *arguments : none;
    const UINT isPut = (flags & puts) != 0 ? 1 : 0;
    if (parameters.cArgs > 0 && !parameters.rgvarg)
        return E_INVALIDARG;
    if (parameters.cNamedArgs != isPut || parameters.cArgs < isPut)
        return DISP_E_NONAMEDARGS;
    MacroEval* object = GetObject();
    const SYS_String* name = nameNumbers().Find(id);
    if (!object || (!name && id != DISPID_VALUE))
        return DISP_E_MEMBERNOTFOUND;
    if (name && flags == DISPATCH_PROPERTYGET && !object->IsPropertyGet(*name))
        return DISP_E_MEMBERNOTFOUND; // a watch runs no methods
    const Counted<Face> held(this);
    try {
        ArgumentList list(parameters, isPut);
        bool isKnown = true;
        UI_MacroVariant value = evaluate(*object, name, list, isKnown);
        if (!isKnown)
            return DISP_E_MEMBERNOTFOUND;
        if (isPut)
            return put(value, parameters.rgvarg[0], (flags & DISPATCH_PROPERTYPUTREF) != 0);
        if (result)
            *result = ToVariant(value).Detach();
        return S_OK;
    } catch (const MacroException& error) {
        return tellError(error.GetText(), exception);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

} // namespace

IDispatch* ExposeToAutomation(MacroEval& object) {
    FaceTable& table = faces();
    Face*& known = table.byObject[&object];
    if (known && known->GetObject() == &object) {
        known->AddRef();
        return known;
    }
    Face* made = new Face(object);
    known = made;
    table.all.insert(made);
    return made;
}

UI_MacroVariant WalkOver(const std::vector<MacroEval*>& objects) {
    std::vector<COleVariant> items;
    items.reserve(objects.size());
    for (MacroEval* object : objects)
        items.push_back(automation::Own(ExposeToAutomation(*object)));
    return automation::Own(automation::NewEnumerator(std::move(items))).punkVal;
}

bool IsExposedObject(IDispatch* dispatch, MacroEval*& object) {
    const auto& all = faces().all;
    if (all.empty() || !all.contains(dispatch))
        return false;
    object = static_cast<Face*>(dispatch)->GetObject();
    return true;
}
