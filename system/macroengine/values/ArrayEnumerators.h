#pragma once

// Enumerators as automation objects. Made with `new`, with one reference for the maker; the last
// release ends them.

#include <Automation.h>
#include <AutomationCounted.h>

#include "values/ArrayWalk.h"
#include "values/Bridge.h"

/// What the enumerators have in common. They neither skip nor copy themselves.
class cArrayEnumBase : public automation::CountedInterface<IEnumVARIANT, IID_IEnumVARIANT> {
public:
    HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* values, ULONG* fetched) override;
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override;
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** copy) override;

    /// The next item as a value; false at the end. Raises: any.
    virtual bool TakeNext(UI_MacroVariant& item) = 0;
};

/// Over the elements of an array, for objects of a host that are collections.
class cArrayEnum final : public cArrayEnumBase {
public:
    explicit cArrayEnum(const UI_MacroVariant& array) : m_Walk(array) {}

    HRESULT STDMETHODCALLTYPE Reset() override;
    bool TakeNext(UI_MacroVariant& item) override;

private:
    ArrayWalk m_Walk;
};

/// What a loop of a macro runs over: an array, or the items of an automation object.
class cMacroArrayEnum final : public cArrayEnumBase {
public:
    explicit cMacroArrayEnum(const UI_MacroVariant& array) : m_Walk(array) {}
    explicit cMacroArrayEnum(Counted<IEnumVARIANT> items)
        : m_Walk(UI_MacroVariant()), m_Items(std::move(items)) {}

    /// Resets the object's own enumerator; E_POINTER if an array is walked.
    HRESULT STDMETHODCALLTYPE Reset() override;
    bool TakeNext(UI_MacroVariant& item) override;

private:
    ArrayWalk m_Walk;
    const Counted<IEnumVARIANT> m_Items;
};
