#pragma once

// Between values and the data of automation.

#include <Automation.h>
#include <UI_MacroVariant.h>

#include <utility>

/// An interface pointer with a reference of its own.
template <class T> class Counted {
public:
    Counted() = default;
    /// Adds a reference.
    explicit Counted(T* object) : m_Object(object) {
        if (object)
            object->AddRef();
    }
    Counted(Counted&& other) noexcept : m_Object(std::exchange(other.m_Object, nullptr)) {}
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    ~Counted() {
        if (m_Object)
            m_Object->Release();
    }

    T* Get() const { return m_Object; }
    T* operator->() const { return m_Object; }
    explicit operator bool() const { return m_Object != nullptr; }

    /// Gives the reference away.
    T* Detach() { return std::exchange(m_Object, nullptr); }
    /// Where a service puts a pointer that it has counted; only for one that holds nothing yet.
    T** Out() { return &m_Object; }

private:
    T* m_Object = nullptr;
};

/// The object's other interface, null if it has none.
template <class T> Counted<T> QueryFor(IUnknown* object, REFIID iid) {
    void* found = nullptr;
    Counted<T> result;
    if (object && SUCCEEDED(object->QueryInterface(iid, &found)))
        *result.Out() = static_cast<T*>(found);
    return result;
}

/// The automation face that the host has given to an object of its own, null if it has none.
Counted<IDispatch> FaceOf(const UI_MacroVariant& object);

/// The automation form of a value. Raises: 20, 42 for arrays beyond the limits. Re-enters: host
/// objects, for a pending call or a property.
COleVariant ToVariant(const UI_MacroVariant& value);

/// Replaces `target` by what the data stands for; data without a meaning to macros gives Empty.
/// Raises: as above. Re-enters: host objects, for their interfaces.
void FromVariant(const VARIANT& source, UI_MacroVariant& target);
