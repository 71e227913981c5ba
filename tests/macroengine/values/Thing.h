#pragma once

#include <Automation.h>
#include <SYS_Unicode.h>
#include <UI_MacroVariant.h>

#include <map>
#include <string>
#include <vector>

#include "values/ArrayEnumerators.h"

/// A value of automation as text: its type, then what it holds.
inline std::string TextOf(const VARIANT& value) {
    switch (value.vt) {
    case VT_EMPTY:
        return "empty";
    case VT_I4:
        return "I4 " + std::to_string(value.lVal);
    case VT_I8:
        return "I8 " + std::to_string(value.llVal);
    case VT_UI8:
        return "UI8 " + std::to_string(value.ullVal);
    case VT_R8:
        return "R8 " + std::to_string(value.dblVal);
    case VT_BOOL:
        return "BOOL " + std::to_string(value.boolVal);
    case VT_BSTR:
        return std::string("BSTR ") + automation::TextOf(value.bstrVal).c_str();
    case VT_DISPATCH:
        return "DISPATCH";
    case VT_UNKNOWN:
        return "UNKNOWN";
    case VT_ERROR:
        return value.scode == DISP_E_PARAMNOTFOUND ? "missing" : "ERROR";
    case VT_ARRAY | VT_VARIANT:
        return "ARRAY of " + std::to_string(SafeArrayGetDim(value.parray));
    default:
        return "type " + std::to_string(value.vt);
    }
}

using Log = std::vector<std::string>;

/// An automation object for tests. It has any member that `ids` names, remembers what is put, gives
/// it back or fails as told, and notes every call in a log.
class Thing final : public IDispatch {
public:
    explicit Thing(Log& log) : m_Log(log) { ++s_Alive; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        *object = nullptr;
        if (iid == IID_IEnumVARIANT && isEnumerator) {
            *object = static_cast<IEnumVARIANT*>(new cArrayEnum(items));
            return S_OK;
        }
        if (iid != IID_IUnknown && (iid != IID_IDispatch || isOpaque))
            return E_NOINTERFACE;
        *object = static_cast<IDispatch*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references;
        if (left == 0)
            delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* found) override {
        const std::string name = kel_ns::SYS_FromUtf16(names[0]).c_str();
        m_Log.push_back(name + (count == 1 ? "?" : "? more than one"));
        if (name == "Unasked")
            return E_FAIL;
        for (const auto& [id, known] : ids) {
            if (known == name) {
                *found = id;
                return S_OK;
            }
        }
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments,
                                     VARIANT* result, EXCEPINFO*, UINT*) override {
        if (id == DISPID_NEWENUM)
            return giveEnumerator(result);
        const UINT named = arguments->cNamedArgs;
        std::string line = ids[id] + " " + std::to_string(flags) + "(";
        for (UINT i = arguments->cArgs; i-- > named;)
            line += TextOf(arguments->rgvarg[i]) + (i > named ? ", " : "");
        line += ")";
        if (named != 0 && arguments->rgdispidNamedArgs[0] == DISPID_PROPERTYPUT)
            line += " = " + TextOf(arguments->rgvarg[0]);
        m_Log.push_back(line);
        if (failures.count(id))
            return failures[id];
        if (named != 0)
            values[id] = arguments->rgvarg[0];
        else
            VariantCopy(result, &values[id]);
        return S_OK;
    }

    enum Member : DISPID { Value = 0, Name, Child, Item, Act, Bad };

    ULONG references = 1;
    bool isOpaque = false;     ///< no IDispatch
    bool isEnumerator = false; ///< enumerates by itself
    bool isCollection = false; ///< has an enumerator member
    UI_MacroVariant items;
    std::map<DISPID, std::string> ids{{Value, "Value"}, {Name, "Name"}, {Child, "Child"},
                                      {Item, "Item"},   {Act, "Act"},   {Bad, "Bad"}};
    std::map<DISPID, COleVariant> values;
    std::map<DISPID, HRESULT> failures;

    static inline int s_Alive = 0;

private:
    ~Thing() { --s_Alive; }

    HRESULT giveEnumerator(VARIANT* result) {
        if (!isCollection)
            return DISP_E_MEMBERNOTFOUND;
        result->vt = VT_UNKNOWN;
        result->punkVal = new cArrayEnum(items);
        return S_OK;
    }

    Log& m_Log;
};
