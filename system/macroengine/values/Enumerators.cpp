#include "values/Enumerators.h"

#include <UI_MacroEval.h>

#include <new>

#include "values/Access.h"
#include "values/ArrayEnumerators.h"
#include "values/Bridge.h"
#include "values/Failure.h"

namespace {

bool takeElement(ArrayWalk& walk, UI_MacroVariant& item) {
    const UI_MacroVariant* element = walk.Next();
    if (!element)
        return false;
    UI_MacroVariant copy(*element);
    item.Take(copy);
    return true;
}

/// What the object's enumerator member gives.
COleVariant readEnumerator(IDispatch& object) {
    DISPPARAMS none{};
    COleVariant result;
    const HRESULT outcome =
        object.Invoke(DISPID_NEWENUM, IID_NULL, LOCALE_USER_DEFAULT,
                      DISPATCH_METHOD | DISPATCH_PROPERTYGET, &none, &result, nullptr, nullptr);
    if (FAILED(outcome))
        result.Clear();
    return result;
}

Counted<IEnumVARIANT> itemsOf(IDispatch& object) {
    if (Counted<IEnumVARIANT> items = QueryFor<IEnumVARIANT>(&object, IID_IEnumVARIANT))
        return items;
    const COleVariant found = readEnumerator(object);
    IUnknown* holder = nullptr;
    if (found.vt == VT_UNKNOWN)
        holder = found.punkVal;
    else if (found.vt == VT_DISPATCH)
        holder = found.pdispVal;
    return QueryFor<IEnumVARIANT>(holder, IID_IEnumVARIANT);
}

} // namespace

// --- cArrayEnumBase --------------------------------------------------------------------------

HRESULT cArrayEnumBase::Next(ULONG count, VARIANT* values, ULONG* fetched) {
    if (fetched)
        *fetched = 0;
    if (!values)
        return E_POINTER;
    ULONG given = 0;
    HRESULT outcome = S_OK;
    try {
        UI_MacroVariant item;
        for (; given < count && TakeNext(item); ++given)
            values[given] = ToVariant(item).Detach();
    } catch (const std::bad_alloc&) {
        outcome = E_OUTOFMEMORY;
    } catch (...) { // no exception may leave towards an object of another library
        outcome = E_FAIL;
    }
    if (FAILED(outcome)) {
        while (given > 0)
            VariantClear(&values[--given]);
        return outcome;
    }
    if (fetched)
        *fetched = given;
    return given == count ? S_OK : S_FALSE;
}

HRESULT cArrayEnumBase::Skip(ULONG) { return S_OK; }

HRESULT cArrayEnumBase::Clone(IEnumVARIANT** copy) {
    if (copy)
        *copy = nullptr;
    return S_OK;
}

// --- the enumerators -------------------------------------------------------------------------

HRESULT cArrayEnum::Reset() {
    m_Walk.Reset();
    return S_OK;
}

bool cArrayEnum::TakeNext(UI_MacroVariant& item) { return takeElement(m_Walk, item); }

HRESULT cMacroArrayEnum::Reset() { return m_Items ? m_Items->Reset() : E_POINTER; }

bool cMacroArrayEnum::TakeNext(UI_MacroVariant& item) {
    if (!m_Items)
        return takeElement(m_Walk, item);
    COleVariant value;
    ULONG fetched = 0;
    const HRESULT outcome = m_Items->Next(1, &value, &fetched);
    if (FAILED(outcome))
        Fail("Invoke failed"); // a part of a collection must not pass for all of it
    if (outcome != S_OK || fetched == 0)
        return false;
    FromVariant(value, item);
    return true;
}

// --- makers ----------------------------------------------------------------------------------

IUnknown* MakeArrayEnumerator(const UI_MacroVariant& array) { return new cMacroArrayEnum(array); }

bool HasCollectionFace(UI_MacroVariant& object) {
    return object.GetType() == vvtObject || FaceOf(object);
}

IUnknown* MakeObjectEnumerator(UI_MacroVariant& object) {
    Counted<IDispatch> face;
    if (object.GetType() == vvtObject) {
        UI_MacroVariant read(object);
        MacroVariantAccess::Invoke(read);
        *face.Out() = Counted<IDispatch>(read.GetDispatchVal()).Detach();
    } else {
        *face.Out() = FaceOf(object).Detach();
    }
    if (!face) {
        Fail(errObjectIsNothing);
        return nullptr;
    }
    Counted<IEnumVARIANT> items = itemsOf(*face.Get());
    return items ? new cMacroArrayEnum(std::move(items)) : nullptr;
}

bool TakeNextItem(IUnknown& enumerator, UI_MacroVariant& item) {
    return static_cast<cMacroArrayEnum&>(enumerator).TakeNext(item);
}
