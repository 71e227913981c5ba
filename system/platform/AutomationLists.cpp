// Lists of values as arrays and as enumerators.

#include "AutomationCounted.h"
#include "AutomationObject.h"

#include <limits>
#include <new>

namespace automation {

namespace {

class ListEnumerator final : public CountedInterface<IEnumVARIANT, IID_IEnumVARIANT> {
public:
    ListEnumerator(std::vector<COleVariant> values, std::size_t next)
        : m_Values(std::move(values)), m_Next(next) {}

    HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* values, ULONG* fetched) override {
        if (fetched)
            *fetched = 0;
        if (!values)
            return E_POINTER;
        ULONG given = 0;
        for (; given < count && m_Next < m_Values.size(); ++given, ++m_Next) {
            VariantInit(&values[given]);
            const HRESULT copied = VariantCopy(&values[given], &m_Values[m_Next]);
            if (SUCCEEDED(copied))
                continue;
            m_Next -= given;
            while (given > 0)
                VariantClear(&values[--given]);
            return copied;
        }
        if (fetched)
            *fetched = given;
        return given == count ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
        const std::size_t left = m_Values.size() - m_Next;
        m_Next += count < left ? count : left;
        return count <= left ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Reset() override {
        m_Next = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** copy) override {
        return MakeInterface<ListEnumerator>(copy, m_Values, m_Next);
    }

private:
    std::vector<COleVariant> m_Values;
    std::size_t m_Next;
};

template <class I> COleVariant own(I* object, VARTYPE type, I* VARIANT::*place) {
    COleVariant value;
    value.vt = type;
    value.*place = object;
    return value;
}

} // namespace

COleVariant Own(IDispatch* object) { return own(object, VT_DISPATCH, &VARIANT::pdispVal); }

COleVariant Own(IUnknown* object) { return own(object, VT_UNKNOWN, &VARIANT::punkVal); }

COleVariant MakeList(std::vector<COleVariant> values) {
    if (values.size() > static_cast<std::size_t>(std::numeric_limits<LONG>::max()))
        throw std::bad_alloc();
    const SAFEARRAYBOUND bound{static_cast<ULONG>(values.size()), 0};
    COleVariant list;
    list.parray = SafeArrayCreate(VT_VARIANT, 1, &bound);
    if (!list.parray)
        throw std::bad_alloc();
    list.vt = VT_ARRAY | VT_VARIANT;
    auto* elements = static_cast<VARIANT*>(list.parray->pvData);
    for (std::size_t i = 0; i < values.size(); ++i)
        elements[i] = values[i].Detach();
    return list;
}

IUnknown* NewEnumerator(std::vector<COleVariant> values) {
    return new ListEnumerator(std::move(values), 0);
}

} // namespace automation
