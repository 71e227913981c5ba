#pragma once

#include <SCC_Map.h>

namespace kel_ns {

template <class T> class SCC_SetIterator;

/// A hash set that keeps the order in which its elements were added. Elements never move.
template <class T> class SCC_Set {
    struct Nothing {};
    using Map = SCC_Map<T, Nothing>;

public:
    /// False if it was there already.
    bool Add(const T& element) {
        int before = m_Map.GetCount();
        m_Map.Emplace(element);
        return m_Map.GetCount() > before;
    }
    /// False if it was not there.
    bool Remove(const T& element) { return m_Map.Remove(element); }
    void RemoveAll() { m_Map.RemoveAll(); }

    bool Contains(const T& element) const { return m_Map.LookupNode(element) != nullptr; }
    int GetCount() const noexcept { return m_Map.GetCount(); }
    bool IsEmpty() const noexcept { return m_Map.IsEmpty(); }

    class const_iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = T;
        using difference_type = std::ptrdiff_t;
        using pointer = const T*;
        using reference = const T&;

        const_iterator() = default;
        explicit const_iterator(typename Map::const_iterator place) : m_Place(place) {}
        const T& operator*() const { return m_Place->key; }
        const T* operator->() const { return &m_Place->key; }
        const_iterator& operator++() {
            ++m_Place;
            return *this;
        }
        const_iterator operator++(int) { return const_iterator(m_Place++); }
        bool operator==(const const_iterator&) const = default;

    private:
        typename Map::const_iterator m_Place;
    };
    const_iterator begin() const { return const_iterator(m_Map.begin()); }
    const_iterator end() const { return const_iterator(m_Map.end()); }

private:
    friend class SCC_SetIterator<T>;
    Map m_Map;
};

/// A walk over a set that may change meanwhile; see SCC_MapIterator.
template <class T> class SCC_SetIterator {
public:
    explicit SCC_SetIterator(SCC_Set<T>& set) : m_Iterator(set.m_Map) {}

    bool Next() noexcept { return m_Iterator.Next(); }
    void Reset() noexcept { m_Iterator.Reset(); }
    bool IsValid() const noexcept { return m_Iterator.IsValid(); }
    bool IsEnd() const noexcept { return m_Iterator.IsEnd(); }
    const T& GetValue() const { return m_Iterator.GetKey(); }
    const T& operator*() const { return GetValue(); }

private:
    SCC_MapIterator<T, typename SCC_Set<T>::Nothing> m_Iterator;
};

} // namespace kel_ns
