#pragma once

#include <SCC_Array.h>

#include <memory>
#include <type_traits>
#include <utility>

namespace kel_ns {

/// A stack on an array that only grows: elements above the top stay made, and empty, for the next
/// push. Looking for an element that is not there is a fatal assertion ("Wrong stack index").
template <class T> class SCC_Stack : private SCC_Array<T> {
    using Array = SCC_Array<T>;

public:
    SCC_Stack() noexcept = default;
    SCC_Stack(const SCC_Stack&) noexcept = default;
    SCC_Stack(SCC_Stack&& other) noexcept
        : Array(std::move(other)), m_Top(std::exchange(other.m_Top, 0)) {}
    SCC_Stack& operator=(SCC_Stack other) noexcept {
        Array::Swap(other);
        std::swap(m_Top, other.m_Top);
        return *this;
    }

    int GetCount() const noexcept { return m_Top; }
    bool IsEmpty() const noexcept { return m_Top == 0; }

    /// Asserts at the fatal level that the top lies within the array.
    bool IsValid() const {
        SCL_ASSERT_FATAL(Array::IsValid() && m_Top >= 0 && m_Top <= Array::GetUpperBound(),
                         "Wrong stack index");
        return true;
    }

    void Push(const T& element) {
        if (m_Top == Array::GetUpperBound()) {
            Array::Append(element);
        } else {
            (*this)[m_Top] = element;
        }
        ++m_Top;
    }
    void Push(T&& element) {
        T taken(std::move(element)); // it may be one of this stack's own, which growth moves
        Array::CheckArray(m_Top);
        (*this)[m_Top] = std::move(taken);
        ++m_Top;
    }

    /// Takes the top element off and frees what it held.
    void Pop() {
        T& element = Peek(0);
        --m_Top;
        if constexpr (std::is_nothrow_default_constructible_v<T>) {
            std::destroy_at(&element);
            ::new (static_cast<void*>(&element)) T();
        } else {
            element = T();
        }
    }

    /// The top element, and the one `depth` places below it. A push may move them.
    T& Top() { return Peek(0); }
    const T& Top() const { return Peek(0); }
    T& Peek(int depth) { return (*this)[indexOf(depth)]; }
    const T& Peek(int depth) const { return static_cast<const Array&>(*this)[indexOf(depth)]; }

    void Clear() noexcept {
        m_Top = 0;
        Array::Clear();
    }

private:
    using Array::operator[];

    int indexOf(int depth) const {
        SCL_ASSERT_FATAL(depth >= 0 && depth < m_Top, "Wrong stack index");
        return m_Top - 1 - depth;
    }

    int m_Top = 0;
};

} // namespace kel_ns
