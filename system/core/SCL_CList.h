#pragma once

#include <SCL_StaticAlloc.h>

#include <cstddef>
#include <iterator>
#include <memory>
#include <new>
#include <utility>

namespace kel_ns::SCL {

/// A circular doubly linked list that holds its elements by value. An element keeps its address
/// until it is removed, and its address is enough to remove it or to go on from it.
template <class T> class SCL_CList {
    struct Link {
        Link* next;
        Link* previous;
    };

public:
    template <class V, class L> class BasicIterator {
    public:
        using iterator_category = std::bidirectional_iterator_tag;
        using value_type = T;
        using difference_type = std::ptrdiff_t;
        using pointer = V*;
        using reference = V&;

        BasicIterator() = default;
        explicit BasicIterator(L* link) : m_Link(link) {}
        V& operator*() const { return *valueOf(const_cast<Link*>(m_Link)); }
        V* operator->() const { return valueOf(const_cast<Link*>(m_Link)); }
        BasicIterator& operator++() {
            m_Link = m_Link->next;
            return *this;
        }
        BasicIterator operator++(int) {
            BasicIterator old = *this;
            m_Link = m_Link->next;
            return old;
        }
        BasicIterator& operator--() {
            m_Link = m_Link->previous;
            return *this;
        }
        BasicIterator operator--(int) {
            BasicIterator old = *this;
            m_Link = m_Link->previous;
            return old;
        }
        bool operator==(const BasicIterator&) const = default;

    private:
        L* m_Link = nullptr;
    };
    using iterator = BasicIterator<T, Link>;
    using const_iterator = BasicIterator<const T, const Link>;

    SCL_CList() = default;
    SCL_CList(const SCL_CList&) = delete;
    SCL_CList& operator=(const SCL_CList&) = delete;
    ~SCL_CList() { Clear(); }

    /// Make an element at the end, at the front, or before an element of this list.
    template <class... A> T* Emplace(A&&... arguments) {
        return make(&m_Ring, std::forward<A>(arguments)...);
    }
    template <class... A> T* EmplaceFront(A&&... arguments) {
        return make(m_Ring.next, std::forward<A>(arguments)...);
    }
    template <class... A> T* EmplaceBefore(T* position, A&&... arguments) {
        return make(linkOf(position), std::forward<A>(arguments)...);
    }

    /// Destroys the element, which must stand in this list. Null does nothing.
    void Remove(T* element) {
        if (!element)
            return;
        Link* link = linkOf(element);
        link->previous->next = link->next;
        link->next->previous = link->previous;
        --m_Count;
        std::destroy_at(element);
        cStaticAlloc::deallocate(link, cellSize());
    }

    /// Destroys the elements from the first to the last.
    void Clear() {
        while (m_Ring.next != &m_Ring)
            Remove(valueOf(m_Ring.next));
    }

    int GetCount() const noexcept { return m_Count; }
    bool IsEmpty() const noexcept { return m_Count == 0; }

    /// Null where there is none.
    T* GetFirst() const { return valueOrNull(m_Ring.next); }
    T* GetLast() const { return valueOrNull(m_Ring.previous); }
    T* GetNext(const T* element) const {
        return valueOrNull(linkOf(const_cast<T*>(element))->next);
    }
    T* GetPrevious(const T* element) const {
        return valueOrNull(linkOf(const_cast<T*>(element))->previous);
    }

    iterator begin() { return iterator(m_Ring.next); }
    iterator end() { return iterator(&m_Ring); }
    const_iterator begin() const { return const_iterator(m_Ring.next); }
    const_iterator end() const { return const_iterator(&m_Ring); }

private:
    // The element stands behind its link in one block. In functions, so that T may be incomplete
    // where a list is only declared.
    static constexpr std::size_t valueOffset() {
        static_assert(alignof(T) <= cStaticAlloc::Granularity);
        return (sizeof(Link) + alignof(T) - 1) / alignof(T) * alignof(T);
    }
    static constexpr std::size_t cellSize() { return valueOffset() + sizeof(T); }
    static T* valueOf(Link* link) {
        return std::launder(
            reinterpret_cast<T*>(reinterpret_cast<std::byte*>(link) + valueOffset()));
    }
    static Link* linkOf(T* element) {
        return std::launder(
            reinterpret_cast<Link*>(reinterpret_cast<std::byte*>(element) - valueOffset()));
    }
    T* valueOrNull(Link* link) const { return link == &m_Ring ? nullptr : valueOf(link); }

    template <class... A> T* make(Link* before, A&&... arguments) {
        void* block = cStaticAlloc::allocate(cellSize());
        void* place = static_cast<std::byte*>(block) + valueOffset();
        T* element = nullptr;
        try {
            element = ::new (place) T(std::forward<A>(arguments)...);
        } catch (...) {
            cStaticAlloc::deallocate(block, cellSize());
            throw;
        }
        Link* link = ::new (block) Link{before, before->previous};
        before->previous->next = link;
        before->previous = link;
        ++m_Count;
        return element;
    }

    Link m_Ring{&m_Ring, &m_Ring};
    int m_Count = 0;
};

} // namespace kel_ns::SCL

namespace kel_ns {
using SCL::SCL_CList;
}
