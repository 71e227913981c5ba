#pragma once

#include <SCL_Assert.h>
#include <SCL_StaticAlloc.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>
#include <type_traits>
#include <utility>

namespace kel_ns {

/// Orders elements for sorted arrays: below, equal to or above 0.
class SCC_ComparatorBase {
public:
    virtual ~SCC_ComparatorBase() = default;
    virtual int Compare(const void* a, const void* b) const = 0;
};

/// The untyped part of an array: what stands in front of the elements in their shared block.
struct SCC_ArrayBuffer {
    int refs;
    int capacity;
    int used;
    const SCC_ComparatorBase* comparator;
};

/// An array with value semantics that is the size of a pointer. Copies share their elements; every
/// access that could write gives this array elements of its own first. Elements are made by the
/// default constructor and copied by assignment into made ones; growth moves them elsewhere, so
/// addresses of elements hold only until the next change. T may be incomplete where an array is
/// only declared. A misuse is an assertion and then harmless.
///
/// Sizes beyond what an int or the address space can hold are std::length_error.
template <class T> class SCC_Array {
public:
    SCC_Array() noexcept = default;
    SCC_Array(const SCC_Array& other) noexcept : m_Buffer(other.m_Buffer) {
        if (m_Buffer)
            ++m_Buffer->refs;
    }
    SCC_Array(SCC_Array&& other) noexcept : m_Buffer(std::exchange(other.m_Buffer, nullptr)) {}
    ~SCC_Array() { drop(m_Buffer); }

    SCC_Array& operator=(const SCC_Array& other) noexcept {
        SCC_Array copy(other);
        Swap(copy);
        return *this;
    }
    SCC_Array& operator=(SCC_Array&& other) noexcept {
        SCC_Array taken(std::move(other));
        Swap(taken);
        return *this;
    }
    void Swap(SCC_Array& other) noexcept { std::swap(m_Buffer, other.m_Buffer); }

    int GetCount() const noexcept { return m_Buffer ? m_Buffer->used : 0; }
    int GetSize() const noexcept { return GetCount(); }

    /// The index one past the last element: where an append inserts.
    int GetUpperBound() const noexcept { return GetCount(); }
    bool InBounds(int index) const noexcept { return index >= 0 && index < GetCount(); }
    bool IsEmpty() const noexcept { return GetCount() == 0; }
    bool IsValid() const noexcept {
        return !m_Buffer ||
               (m_Buffer->refs > 0 && m_Buffer->used >= 0 && m_Buffer->used <= m_Buffer->capacity);
    }
    bool IsShared() const noexcept { return m_Buffer && m_Buffer->refs > 1; }
    bool SharesBufferWith(const SCC_Array& other) const noexcept {
        return m_Buffer && m_Buffer == other.m_Buffer;
    }

    /// Lets go of the elements; the last array that shares them destroys them.
    void Clear() noexcept { drop(std::exchange(m_Buffer, nullptr)); }

    /// Makes or destroys elements at the end until there are `count`.
    void SetSize(int count);

    /// Makes room for `count` elements without changing the array.
    void Reserve(int count);

    /// Extends the array to index + 1 elements if the index lies beyond the end. A negative index
    /// is an assertion and changes nothing.
    void CheckArray(int index) {
        if (index >= GetCount())
            SetSize(index + (index < std::numeric_limits<int>::max() ? 1 : 0));
        else
            SCL_ASSERT(index >= 0, "In SCC_Array::CheckArray(), Negative index");
    }

    /// Opens a gap of `count` new elements in front of the one at the index.
    void Insert(int index, int count);

    /// Removes `count` elements from the index on.
    void Remove(int index, int count = 1);

    /// Adds a copy of the element, which may be one of this array's own, at the end.
    void Append(const T& element);

    /// Gives this array elements of its own.
    void SeparateBuffers() {
        if (IsShared())
            rebuild(m_Buffer->used, m_Buffer->used, 0);
    }

    /// The writable element, of elements of this array's own; for a bad index a scratch element.
    T& operator[](int index) {
        if (!m_Buffer || m_Buffer->refs > 1 ||
            static_cast<unsigned>(index) >= static_cast<unsigned>(m_Buffer->used)) [[unlikely]]
            return checkedElement(index);
        return elements(m_Buffer)[index];
    }
    const T& operator[](int index) const {
        if (!SCL_ASSERT(m_Buffer, "In SCC_Array::operator[], No data") ||
            !SCL_ASSERT(InBounds(index), "In SCC_Array::operator[], Index out of bounds"))
            return scratch();
        return elements(m_Buffer)[index];
    }

    /// The first element; null while there is no buffer.
    const T* Data() const noexcept { return m_Buffer ? elements(m_Buffer) : nullptr; }
    T* WritableData() {
        SeparateBuffers();
        return m_Buffer ? elements(m_Buffer) : nullptr;
    }
    const T* begin() const noexcept { return Data(); }
    const T* end() const noexcept { return m_Buffer ? elements(m_Buffer) + GetCount() : nullptr; }

    /// How many elements growth adds at least: half of what there is room for.
    int GetGrowByAmount() const noexcept {
        return m_Buffer ? std::max(4, m_Buffer->capacity / 2) : 4;
    }

    /// Sorts, equal elements staying in order: by `<`, or by a comparator that gets their addresses.
    void Sort() {
        if (GetCount() > 1)
            std::stable_sort(WritableData(), WritableData() + GetCount());
    }
    void Sort(const SCC_ComparatorBase& comparator) {
        if (GetCount() > 1)
            std::stable_sort(
                WritableData(), WritableData() + GetCount(),
                [&](const T& a, const T& b) { return comparator.Compare(&a, &b) < 0; });
    }

    /// Sorts and remembers the comparator, which must outlive the elements, until Clear; null
    /// forgets it.
    void SetSort(const SCC_ComparatorBase* comparator);
    const SCC_ComparatorBase* GetSort() const noexcept {
        return m_Buffer ? m_Buffer->comparator : nullptr;
    }

    /// Finds the elements equal to the item in a sorted array: they are those from `first` up to
    /// but without `last`. With none both are the place to insert it, and the result is false.
    /// Without any comparator that place is the end.
    bool FindItemPosition(const void* item, int& first, int& last,
                          const SCC_ComparatorBase* comparator = nullptr) const;

private:
    using Buffer = SCC_ArrayBuffer;

    static constexpr std::size_t elementsOffset() {
        static_assert(alignof(T) <= SCL::cStaticAlloc::Granularity);
        return (sizeof(Buffer) + alignof(T) - 1) / alignof(T) * alignof(T);
    }
    static std::size_t blockSize(int capacity) {
        return elementsOffset() + static_cast<std::size_t>(capacity) * sizeof(T);
    }
    static T* elements(Buffer* buffer) noexcept {
        return reinterpret_cast<T*>(reinterpret_cast<std::byte*>(buffer) + elementsOffset());
    }

    static Buffer* makeBuffer(int capacity);
    static void release(Buffer* buffer) noexcept;
    static void drop(Buffer* buffer) noexcept {
        if (buffer && --buffer->refs == 0)
            release(buffer);
    }
    static T& scratch();

    int grownCapacity(int count) const;
    void rebuild(int capacity, int gap, int gapCount);
    T& checkedElement(int index);

    Buffer* m_Buffer = nullptr;
};

// --- implementation ----------------------------------------------------------------------------

template <class T> SCC_ArrayBuffer* SCC_Array<T>::makeBuffer(int capacity) {
    constexpr std::size_t largest = std::numeric_limits<std::ptrdiff_t>::max();
    if (capacity < 0 ||
        static_cast<std::size_t>(capacity) > (largest - elementsOffset()) / sizeof(T))
        throw std::length_error("array too long");
    void* block = SCL::cStaticAlloc::allocate(blockSize(capacity));
    return ::new (block) Buffer{1, capacity, 0, nullptr};
}

template <class T> void SCC_Array<T>::release(Buffer* buffer) noexcept {
    std::destroy_n(elements(buffer), buffer->used);
    SCL::cStaticAlloc::deallocate(buffer, blockSize(buffer->capacity));
}

/// What a bad index gets after its assertion. Fresh each time and never destroyed at the end, when
/// others may still hold it.
template <class T> T& SCC_Array<T>::scratch() {
    static T* const element = new T();
    std::destroy_at(element);
    return *::new (static_cast<void*>(element)) T();
}

template <class T> int SCC_Array<T>::grownCapacity(int count) const {
    int present = m_Buffer ? m_Buffer->capacity : 0;
    if (count <= present)
        return present;
    int step = GetGrowByAmount();
    int grown = present > std::numeric_limits<int>::max() - step ? std::numeric_limits<int>::max()
                                                                 : present + step;
    // The first buffer fits exactly: most arrays get their size once.
    return present == 0 ? count : std::max(count, grown);
}

/// Gives this array a buffer of its own of that capacity, with `gapCount` new elements before the
/// one at `gap`. Elements that others share are copied, those of this array alone move.
template <class T> void SCC_Array<T>::rebuild(int capacity, int gap, int gapCount) {
    SCC_Array next;
    next.m_Buffer = makeBuffer(capacity);
    T* to = elements(next.m_Buffer);
    int& made = next.m_Buffer->used;
    const int count = GetCount();
    const bool shared = IsShared();
    if (m_Buffer)
        next.m_Buffer->comparator = m_Buffer->comparator;
    auto transfer = [&](int index) {
        T* from = elements(m_Buffer) + index;
        ::new (static_cast<void*>(to + made)) T();
        T& target = to[made++];
        if (shared)
            target = static_cast<const T&>(*from);
        else
            target = std::move(*from);
    };
    for (int i = 0; i < gap; ++i)
        transfer(i);
    for (int i = 0; i < gapCount; ++i) {
        ::new (static_cast<void*>(to + made)) T();
        ++made;
    }
    for (int i = gap; i < count; ++i)
        transfer(i);
    Swap(next);
}

template <class T> void SCC_Array<T>::SetSize(int count) {
    if (!SCL_ASSERT(count >= 0, "In SCC_Array::SetSize(), Negative size"))
        return;
    int old = GetCount();
    if (count == old)
        return;
    if (count > old && (!m_Buffer || IsShared() || count > m_Buffer->capacity))
        rebuild(grownCapacity(count), old, 0);
    else
        SeparateBuffers();
    T* all = elements(m_Buffer);
    int& used = m_Buffer->used;
    while (used < count) {
        ::new (static_cast<void*>(all + used)) T();
        ++used;
    }
    while (used > count) {
        --used;
        std::destroy_at(all + used);
    }
}

template <class T> void SCC_Array<T>::Reserve(int count) {
    if (count > 0 && (!m_Buffer || IsShared() || count > m_Buffer->capacity))
        rebuild(std::max(count, GetCount()), GetCount(), 0);
}

template <class T> void SCC_Array<T>::Insert(int index, int count) {
    int old = GetCount();
    if (!SCL_ASSERT(index >= 0 && index <= old, "In SCC_Array::Insert(), Index out of bounds") ||
        !SCL_ASSERT(count >= 0, "In SCC_Array::Insert(), Negative count"))
        return;
    if (count == 0)
        return;
    if (count > std::numeric_limits<int>::max() - old)
        throw std::length_error("array too long");
    if (index == old)
        SetSize(old + count);
    else
        rebuild(grownCapacity(old + count), index, count);
}

template <class T> void SCC_Array<T>::Remove(int index, int count) {
    int old = GetCount();
    if (!SCL_ASSERT(index >= 0 && count >= 0 && index <= old && count <= old - index,
                    "In SCC_Array::Remove(), Range out of bounds"))
        return;
    if (count == 0)
        return;
    T* all = WritableData();
    std::move(all + index + count, all + old, all + index);
    SetSize(old - count);
}

template <class T> void SCC_Array<T>::Append(const T& element) {
    int old = GetCount();
    if (old == std::numeric_limits<int>::max())
        throw std::length_error("array too long");
    bool own = !std::less<const T*>()(&element, Data()) && std::less<const T*>()(&element, end());
    int index = own ? static_cast<int>(&element - Data()) : -1;
    SetSize(old + 1);
    T* all = elements(m_Buffer);
    all[old] = own ? static_cast<const T&>(all[index]) : element;
}

template <class T> T& SCC_Array<T>::checkedElement(int index) {
    if (!SCL_ASSERT(m_Buffer, "In SCC_Array::operator[], No data"))
        return scratch();
    SeparateBuffers();
    if (!SCL_ASSERT(InBounds(index), "In SCC_Array::operator[], Index out of bounds"))
        return scratch();
    return elements(m_Buffer)[index];
}

template <class T> void SCC_Array<T>::SetSort(const SCC_ComparatorBase* comparator) {
    if (!m_Buffer) {
        if (!comparator)
            return;
        m_Buffer = makeBuffer(GetGrowByAmount());
    }
    SeparateBuffers();
    m_Buffer->comparator = comparator;
    if (comparator)
        Sort(*comparator);
}

template <class T>
bool SCC_Array<T>::FindItemPosition(const void* item, int& first, int& last,
                                    const SCC_ComparatorBase* comparator) const {
    if (!comparator)
        comparator = GetSort();
    first = last = GetCount();
    if (!comparator || first == 0)
        return false;
    auto below = [&](const T& element, const void* key) {
        return comparator->Compare(&element, key) < 0;
    };
    auto above = [&](const void* key, const T& element) {
        return comparator->Compare(key, &element) < 0;
    };
    const T* low = std::lower_bound(begin(), end(), item, below);
    const T* high = std::upper_bound(low, end(), item, above);
    first = static_cast<int>(low - begin());
    last = static_cast<int>(high - begin());
    return first < last;
}

} // namespace kel_ns
