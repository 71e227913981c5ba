#include "ObjectFace.h"

#include <MacroException.h>

namespace {

/// The items of a collection as they were when the loop began.
class ItemEnumerator final : public IEnumVARIANT {
public:
    explicit ItemEnumerator(std::vector<IDispatch*> items) : m_Items(std::move(items)) {
        for (IDispatch* item : m_Items)
            item->AddRef();
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        if (!object)
            return E_POINTER;
        *object = nullptr;
        if (iid != IID_IUnknown && iid != IID_IEnumVARIANT)
            return E_NOINTERFACE;
        *object = static_cast<IEnumVARIANT*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_References; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --m_References;
        if (left == 0)
            delete this;
        return left;
    }

    HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* values, ULONG* fetched) override {
        ULONG given = 0;
        for (; given < count && m_Next < m_Items.size(); ++given)
            values[given] = COleVariant(m_Items[m_Next++]).Detach();
        if (fetched)
            *fetched = given;
        return given == count ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
        const bool isEnough = count <= m_Items.size() - m_Next;
        m_Next = isEnough ? m_Next + count : m_Items.size();
        return isEnough ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Reset() override {
        m_Next = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** copy) override {
        if (!copy)
            return E_POINTER;
        auto* other = new ItemEnumerator(m_Items);
        other->m_Next = m_Next;
        *copy = other;
        return S_OK;
    }

private:
    ~ItemEnumerator() {
        for (IDispatch* item : m_Items)
            item->Release();
    }

    std::vector<IDispatch*> m_Items;
    std::size_t m_Next = 0;
    ULONG m_References = 1;
};

/// The arguments of a call in the order of macros; automation has the last one first.
std::vector<UI_MacroVariant> readArguments(const DISPPARAMS* arguments) {
    if (!arguments)
        return {};
    std::vector<UI_MacroVariant> values(arguments->cArgs);
    for (std::size_t i = 0; i < values.size(); ++i) {
        const VARIANT& value = arguments->rgvarg[values.size() - 1 - i];
        if (value.vt == VT_ERROR)
            values[i].SetType(vvtMissing);
        else
            values[i].init(value);
    }
    return values;
}

std::string nameOf(LPCOLESTR name) {
    BSTR text = SysAllocString(name);
    std::string result(automation::TextOf(text).View());
    SysFreeString(text);
    return result;
}

/// Whether the class of the object has a member of that name.
bool hasMember(MacroEval& object, const std::string& name) {
    for (const ScriptDebugger::iApplicationClass* c = object.GetMacroDescriptor(); c;
         c = c->GetParentClass()) {
        for (unsigned i = 0; i < c->GetMethodsCount(); ++i)
            if (c->GetMethod(i)->GetName().CompareNoCase(name.c_str()) == 0)
                return true;
        for (unsigned i = 0; i < c->GetPropertiesCount(); ++i)
            if (c->GetProperty(i)->GetName().CompareNoCase(name.c_str()) == 0)
                return true;
    }
    return false;
}

} // namespace

// --- ObjectFace ------------------------------------------------------------------------------

HRESULT ObjectFace::QueryInterface(REFIID iid, void** object) {
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IDispatch)
        return E_NOINTERFACE;
    *object = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
}

ULONG ObjectFace::AddRef() { return ++m_References; }

ULONG ObjectFace::Release() {
    const ULONG left = --m_References;
    if (left == 0)
        delete this;
    return left;
}

HRESULT ObjectFace::GetTypeInfoCount(UINT* count) {
    if (!count)
        return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT ObjectFace::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
    if (info)
        *info = nullptr;
    return E_NOTIMPL;
}

HRESULT ObjectFace::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    UI_MacroVariant* object = m_Object;
    if (count != 1 || !object)
        return DISP_E_UNKNOWNNAME;
    const std::string name = nameOf(names[0]);
    auto& known = static_cast<MacroEval&>(*object);
    if (!hasMember(known, name)) {
        known.OnMacroError(errMemberNotFound, name.c_str()); // tells more than the result does
        return DISP_E_UNKNOWNNAME;
    }
    for (std::size_t i = 0; i < m_Names.size(); ++i) {
        if (m_Names[i] == name) {
            ids[0] = static_cast<DISPID>(i + 1);
            return S_OK;
        }
    }
    m_Names.push_back(name);
    ids[0] = static_cast<DISPID>(m_Names.size());
    return S_OK;
}

HRESULT ObjectFace::Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* arguments,
                           VARIANT* result, EXCEPINFO*, UINT*) {
    if (member == DISPID_NEWENUM)
        return enumerate(result);
    UI_MacroVariant* target = m_Object;
    if (!target || member < 0 || member > static_cast<DISPID>(m_Names.size()))
        return DISP_E_MEMBERNOTFOUND;
    auto& object = static_cast<MacroEval&>(*target);
    const char* name =
        member == 0 ? nullptr : m_Names[static_cast<std::size_t>(member) - 1].c_str();
    std::vector<UI_MacroVariant> values = readArguments(arguments);
    if (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) {
        if (values.empty())
            return DISP_E_BADPARAMCOUNT;
        const UI_MacroVariant value = values.back();
        UI_MacroVariant property =
            object.Evaluate(name, values.data(), static_cast<int>(values.size()) - 1);
        property.Assign(value);
        return S_OK;
    }
    const UI_MacroVariant value =
        object.Evaluate(name, values.data(), static_cast<int>(values.size()));
    return result ? VariantCopy(result, &static_cast<const VARIANT&>(COleVariant(value))) : S_OK;
}

HRESULT ObjectFace::enumerate(VARIANT* result) {
    if (!m_Items || !m_Object)
        return DISP_E_MEMBERNOTFOUND;
    if (!result)
        return E_POINTER;
    auto* items = new ItemEnumerator(m_Items());
    const COleVariant holder(static_cast<IUnknown*>(items));
    items->Release();
    return VariantCopy(result, &holder);
}

// --- FacedObject -----------------------------------------------------------------------------

bool FacedObject::GetDispatch(IDispatch** out) const {
    if (out) {
        *out = m_Face;
        m_Face->AddRef();
    }
    return true;
}
