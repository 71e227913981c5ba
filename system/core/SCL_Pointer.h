#pragma once

#include <SCL_Assert.h>

#include <cstddef>
#include <utility>

namespace kel_ns::SCL {

/// An object whose life is counted. The owner is told for tracing only; null is fine.
class iRefCounted {
public:
    virtual int AddRef(const void* owner) = 0;
    virtual int Release(const void* owner) = 0;

protected:
    iRefCounted() = default;
    iRefCounted(const iRefCounted&) = default;
    iRefCounted& operator=(const iRefCounted&) = default;
    ~iRefCounted() = default;
};

/// Implements the count for the interface I. A new object, and a copy, starts at 0 and belongs to
/// nobody; the Release that brings the count back to 0 deletes it. An object that its creator owns
/// otherwise disables the count: then AddRef and Release do nothing and return -1.
template <class I = iRefCounted> class tRefCounted : public I {
public:
    tRefCounted() = default;
    tRefCounted(const tRefCounted& other) : I(other) {}
    tRefCounted& operator=(const tRefCounted& other) {
        I::operator=(other);
        return *this;
    }

    int AddRef(const void*) override {
        if (m_RefCount == Disabled)
            return -1;
        return static_cast<int>(++m_RefCount);
    }

    int Release(const void*) override {
        if (m_RefCount == Disabled)
            return -1;
        if (!SCL_ASSERT(m_RefCount != 0, "Release of an object that nobody owns"))
            return 0;
        int left = static_cast<int>(--m_RefCount);
        if (left == 0)
            Delete();
        return left;
    }

    virtual ~tRefCounted() = default;

    virtual void DisableRefCount() { m_RefCount = Disabled; }
    virtual bool RefCountDisabled() const { return m_RefCount == Disabled; }

    /// Ends the object. The count is off from here on, so that a counted pointer made and dropped
    /// by the destructor does not delete the object again.
    virtual void Delete() {
        m_RefCount = Disabled;
        delete this;
    }

private:
    static constexpr unsigned Disabled = ~0u;
    unsigned m_RefCount = 0;
};

/// Owns one count of an object. T may be incomplete where a pointer is only declared.
template <class T> class SCL_Pointer {
public:
    SCL_Pointer() noexcept = default;
    SCL_Pointer(std::nullptr_t) noexcept {}
    SCL_Pointer(T* object) : m_Object(object) { acquire(); }
    SCL_Pointer(const SCL_Pointer& other) : m_Object(other.m_Object) { acquire(); }
    SCL_Pointer(SCL_Pointer&& other) noexcept : m_Object(other.m_Object) {
        other.m_Object = nullptr;
    }
    template <class U> SCL_Pointer(const SCL_Pointer<U>& other) : m_Object(other.Get()) {
        acquire();
    }
    ~SCL_Pointer() { drop(m_Object); }

    SCL_Pointer& operator=(T* object) {
        Reset(object);
        return *this;
    }
    SCL_Pointer& operator=(std::nullptr_t) {
        Reset();
        return *this;
    }
    SCL_Pointer& operator=(const SCL_Pointer& other) {
        Reset(other.m_Object);
        return *this;
    }
    SCL_Pointer& operator=(SCL_Pointer&& other) noexcept {
        SCL_Pointer taken(std::move(other));
        Swap(taken);
        return *this;
    }

    /// Takes the new object before it lets go of the old one.
    void Reset(T* object = nullptr) {
        SCL_Pointer next(object);
        Swap(next);
    }

    void Swap(SCL_Pointer& other) noexcept { std::swap(m_Object, other.m_Object); }

    T* Get() const noexcept { return m_Object; }
    operator T*() const noexcept { return m_Object; }
    T* operator->() const noexcept { return m_Object; }
    T& operator*() const noexcept { return *m_Object; }

private:
    void acquire() {
        if (m_Object)
            m_Object->AddRef(this);
    }
    void drop(T* object) {
        if (object)
            object->Release(this);
    }

    T* m_Object = nullptr;
};

} // namespace kel_ns::SCL

namespace kel_ns {
using SCL::iRefCounted;
using SCL::SCL_Pointer;
using SCL::tRefCounted;
} // namespace kel_ns
