#pragma once

#include <AutomationTypes.h>

#include <new>
#include <utility>

namespace automation {

/// What small automation interfaces share: one interface beside IUnknown, counted references that
/// begin with one, and an end with the last of them.
template <class I, const IID& iid> class CountedInterface : public I {
public:
    CountedInterface() = default;
    CountedInterface(const CountedInterface&) = delete;
    CountedInterface& operator=(const CountedInterface&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
        if (!object)
            return E_POINTER;
        *object = nullptr;
        if (wanted != IID_IUnknown && wanted != iid)
            return E_NOINTERFACE;
        AddRef();
        *object = static_cast<I*>(this);
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_References; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --m_References;
        if (left == 0)
            delete this;
        return left;
    }

protected:
    virtual ~CountedInterface() = default;

private:
    ULONG m_References = 1;
};

/// Makes a `T` for an out-parameter, with one reference that the caller gets. E_OUTOFMEMORY if the
/// memory does not suffice; the parameter is then null.
template <class T, class I, class... A> HRESULT MakeInterface(I** out, A&&... arguments) {
    if (!out)
        return E_POINTER;
    *out = nullptr;
    try {
        *out = new T(std::forward<A>(arguments)...);
        return S_OK;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

} // namespace automation
