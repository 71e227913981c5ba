#pragma once

#include <SCC_Event.h>
#include <SCL_StaticAlloc.h>

#include <cstddef>
#include <new>
#include <type_traits>
#include <utility>

namespace kel_ns {

template <class T> class SCC_SafePointer;
class SCC_SafeBuffer;

/// What an object and the pointers to it share. Made for the first pointer or listener; goes when
/// the object and all pointers are gone.
struct SCC_SafeControl {
    SCC_SafeBuffer* target;
    int pointerCount;
    SCC_Notifier* notifier;
};

/// Base of objects that safe pointers may point at. None of its state is copied with a value: a
/// copy is another object, at which nobody points yet.
class SCC_SafeBuffer {
public:
    SCC_SafeBuffer() noexcept = default;
    SCC_SafeBuffer(const SCC_SafeBuffer&) noexcept {}
    SCC_SafeBuffer& operator=(const SCC_SafeBuffer&) noexcept { return *this; }

    /// All safe pointers read null from here on; then listeners hear code 2.
    virtual ~SCC_SafeBuffer() {
        while (m_Control)
            detach();
    }

    /// How many safe pointers point here.
    int GetLockCount() const noexcept { return m_Control ? m_Control->pointerCount : 0; }

    /// Lets the last safe pointer that is cleared delete this object. Nothing happens at once, even
    /// if nothing points here now.
    void SetDeletePending(bool pending = true) noexcept { m_DeletePending = pending; }
    bool IsDeletePending() const noexcept { return m_DeletePending; }

    /// Where to hear of this object; made on first use.
    SCC_Notifier& GetNotifier() {
        SCC_SafeControl* shared = control();
        if (!shared->notifier)
            shared->notifier = new SCC_Notifier(0);
        return *shared->notifier;
    }

private:
    template <class T> friend class SCC_SafePointer;

    SCC_SafeControl* control() {
        if (!m_Control) {
            void* block = SCL::cStaticAlloc::allocate(sizeof(SCC_SafeControl));
            m_Control = ::new (block) SCC_SafeControl{this, 0, nullptr};
        }
        return m_Control;
    }

    static void freeControl(SCC_SafeControl* shared) noexcept {
        SCL::cStaticAlloc::deallocate(shared, sizeof(SCC_SafeControl));
    }

    // Counts as a pointer itself while listeners run, for they may clear the others.
    void detach() noexcept {
        SCC_SafeControl* shared = std::exchange(m_Control, nullptr);
        shared->target = nullptr;
        ++shared->pointerCount;
        if (SCC_Notifier* notifier = std::exchange(shared->notifier, nullptr)) {
            notifier->Notify(SCC_NotifyRemoved, nullptr);
            delete notifier;
        }
        release(shared);
    }

    static void release(SCC_SafeControl* shared) noexcept {
        if (--shared->pointerCount > 0)
            return;
        SCC_SafeBuffer* target = shared->target;
        if (!target) {
            freeControl(shared);
        } else if (target->m_DeletePending) {
            target->m_DeletePending = false;
            delete target;
        }
    }

    SCC_SafeControl* m_Control = nullptr;
    bool m_DeletePending = false; // last: a derived class may use the bytes behind it
};

/// A weak pointer: reads null once its target has ended. T derives from SCC_SafeBuffer, not
/// virtually, and may be incomplete where a pointer is only declared.
template <class T> class SCC_SafePointer {
public:
    SCC_SafePointer() noexcept = default;
    SCC_SafePointer(std::nullptr_t) noexcept {}
    SCC_SafePointer(T* target) : m_Control(controlOf(target)) { acquire(); }
    SCC_SafePointer(const SCC_SafePointer& other) noexcept : m_Control(other.m_Control) {
        acquire();
    }
    SCC_SafePointer(SCC_SafePointer&& other) noexcept
        : m_Control(std::exchange(other.m_Control, nullptr)) {}
    template <class U>
    SCC_SafePointer(const SCC_SafePointer<U>& other) : SCC_SafePointer(other.Get()) {}
    ~SCC_SafePointer() { Clear(); }

    SCC_SafePointer& operator=(T* target) {
        SCC_SafePointer next(target);
        Swap(next);
        return *this;
    }
    SCC_SafePointer& operator=(std::nullptr_t) noexcept {
        Clear();
        return *this;
    }
    SCC_SafePointer& operator=(const SCC_SafePointer& other) noexcept {
        SCC_SafePointer next(other);
        Swap(next);
        return *this;
    }
    SCC_SafePointer& operator=(SCC_SafePointer&& other) noexcept {
        SCC_SafePointer next(std::move(other));
        Swap(next);
        return *this;
    }

    void Swap(SCC_SafePointer& other) noexcept { std::swap(m_Control, other.m_Control); }

    /// Points nowhere from here on. The last pointer to an object that waits for its end deletes it.
    void Clear() noexcept {
        if (m_Control)
            SCC_SafeBuffer::release(std::exchange(m_Control, nullptr));
    }

    /// Whether a target was set, which may have ended since.
    bool IsSet() const noexcept { return m_Control != nullptr; }
    T* Get() const noexcept { return m_Control ? static_cast<T*>(m_Control->target) : nullptr; }
    operator T*() const noexcept { return Get(); }
    T* operator->() const noexcept { return Get(); }
    T& operator*() const noexcept { return *Get(); }

private:
    static SCC_SafeControl* controlOf(T* target) {
        SCC_SafeBuffer* buffer = const_cast<std::remove_const_t<T>*>(target);
        return buffer ? buffer->control() : nullptr;
    }
    void acquire() noexcept {
        if (m_Control)
            ++m_Control->pointerCount;
    }

    SCC_SafeControl* m_Control = nullptr;
};

} // namespace kel_ns
