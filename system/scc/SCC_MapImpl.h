#pragma once

// The member functions of SCC_Map; include <SCC_Map.h>.
#include <SCC_Map.h>

namespace kel_ns {

template <class K, class V, class A> SCC_Map<K, V, A>::SCC_Map(const SCC_Map& other) : SCC_Map() {
    if (other.m_Extras && other.m_Extras->hash)
        extras().hash = other.m_Extras->hash;
    if (other.m_Count == 0)
        return;
    useTable(makeTable(other.m_TableSize), other.m_TableSize);
    for (Node* node = other.m_First; node; node = node->m_Next)
        append(node->key, node->m_Hash, static_cast<const V&>(node->value));
}

template <class K, class V, class A>
SCC_Map<K, V, A>& SCC_Map<K, V, A>::operator=(const SCC_Map& other) {
    if (this == &other)
        return *this;
    SCC_Map copy(other);
    return *this = std::move(copy);
}

// Listeners stay with the map that they listen to. The old items go after they have been told.
template <class K, class V, class A>
SCC_Map<K, V, A>& SCC_Map<K, V, A>::operator=(SCC_Map&& other) {
    if (this == &other)
        return *this;
    SCC_Map old;
    old.takeFrom(other);
    if (m_Extras || (old.m_Extras && old.m_Extras->hash))
        extras().hash = old.m_Extras ? old.m_Extras->hash : nullptr;
    swapItems(old);
    ++m_Changes;
    notify(SCC_NotifyAssigned, nullptr);
    return *this;
}

template <class K, class V, class A> SCC_Map<K, V, A>::~SCC_Map() {
    notify(SCC_NotifyRemoved, nullptr);
    destroyAll();
    delete m_Extras;
}

// --- growth and linking ------------------------------------------------------------------------

// Takes over a zeroed table and hangs every node into it.
template <class K, class V, class A>
void SCC_Map<K, V, A>::useTable(Node** table, int size) noexcept {
    if (m_Table)
        freeTable(m_Table, m_TableSize);
    m_Table = table;
    m_TableSize = size;
    for (Node* node = m_First; node; node = node->m_Next) {
        Node*& head = m_Table[bucketOf(node->m_Hash)];
        node->m_BucketNext = head;
        head = node;
    }
}

template <class K, class V, class A> bool SCC_Map<K, V, A>::readyToInstall() {
    if (!SCL_ASSERT(IsValid(), "In SCC_Map::Install(), Invalid map"))
        return false;
    if (m_Count >= m_TableSize)
        if (int size = SCC_GetNewTableSize(m_TableSize))
            useTable(makeTable(size), size);
    return SCL_ASSERT(m_Table, "In SCC_Map::Install(), Empty map table");
}

template <class K, class V, class A>
template <class... Args>
typename SCC_Map<K, V, A>::Node* SCC_Map<K, V, A>::append(const K& key, SCC_HashValue hash,
                                                          Args&&... arguments) {
    void* block = A().allocate(sizeof(Node), m_Last);
    Node* node = nullptr;
    try {
        node = ::new (block) Node(key, hash, std::forward<Args>(arguments)...);
    } catch (...) {
        A().deallocate(block, sizeof(Node));
        throw;
    }
    node->m_Previous = m_Last;
    (m_Last ? m_Last->m_Next : m_First) = node;
    m_Last = node;
    Node*& head = m_Table[bucketOf(hash)];
    node->m_BucketNext = head;
    head = node;
    ++m_Count;
    ++m_Changes;
    return node;
}

// Takes the node out of its bucket and of the order, but leaves its own links, from which
// listeners find its neighbours.
template <class K, class V, class A> void SCC_Map<K, V, A>::unlink(Node* node) noexcept {
    Node** place = &m_Table[bucketOf(node->m_Hash)];
    while (*place != node)
        place = &(*place)->m_BucketNext;
    *place = node->m_BucketNext;
    (node->m_Previous ? node->m_Previous->m_Next : m_First) = node->m_Next;
    (node->m_Next ? node->m_Next->m_Previous : m_Last) = node->m_Previous;
    --m_Count;
    ++m_Changes;
    if (m_Count == 0) {
        freeTable(m_Table, m_TableSize);
        m_Table = nullptr;
        m_TableSize = 0;
    }
}

// The map is empty before the first item ends, for the end of a value may look into it.
template <class K, class V, class A> void SCC_Map<K, V, A>::destroyAll() noexcept {
    if (m_Count > 0)
        ++m_Changes;
    m_Count = 0;
    m_Last = nullptr;
    if (Node** table = std::exchange(m_Table, nullptr))
        freeTable(table, std::exchange(m_TableSize, 0));
    Node* node = std::exchange(m_First, nullptr);
    while (node) {
        Node* next = node->m_Next;
        freeNode(node);
        node = next;
    }
}

template <class K, class V, class A> void SCC_Map<K, V, A>::swapItems(SCC_Map& other) noexcept {
    std::swap(m_Table, other.m_Table);
    std::swap(m_TableSize, other.m_TableSize);
    std::swap(m_Count, other.m_Count);
    std::swap(m_First, other.m_First);
    std::swap(m_Last, other.m_Last);
}

// For an empty map: takes items and hash; what listens to the other map is told that it is empty.
template <class K, class V, class A> void SCC_Map<K, V, A>::takeFrom(SCC_Map& other) {
    if (other.m_Extras && other.m_Extras->hash)
        extras().hash = other.m_Extras->hash;
    if (other.m_Count == 0)
        return;
    other.notify(SCC_NotifyClearing, nullptr);
    swapItems(other);
    ++m_Changes;
    ++other.m_Changes;
}

// --- operations --------------------------------------------------------------------------------

template <class K, class V, class A>
template <class U>
typename SCC_Map<K, V, A>::Node* SCC_Map<K, V, A>::install(const K& key, U&& value) {
    if (!readyToInstall())
        return nullptr;
    SCC_HashValue hash = Hash(key);
    if (Node* node = find(key, hash)) {
        node->value = std::forward<U>(value);
        return node;
    }
    Node* node = append(key, hash, std::forward<U>(value));
    notify(SCC_NotifyInstalled, node);
    return node;
}

template <class K, class V, class A>
template <class... Args>
typename SCC_Map<K, V, A>::Node* SCC_Map<K, V, A>::Emplace(const K& key, Args&&... arguments) {
    if (!readyToInstall())
        return nullptr;
    SCC_HashValue hash = Hash(key);
    if (Node* node = find(key, hash))
        return node;
    Node* node = append(key, hash, std::forward<Args>(arguments)...);
    notify(SCC_NotifyInstalled, node);
    return node;
}

template <class K, class V, class A>
typename SCC_Map<K, V, A>::Node* SCC_Map<K, V, A>::lookupChecked(const K& key) const {
    if (!SCL_ASSERT(IsValid(), "In SCC_Map::Lookup(), Invalid map") || m_Count == 0 ||
        !SCL_ASSERT(m_Table, "In SCC_Map::Lookup(), Empty map table"))
        return nullptr;
    return find(key, Hash(key));
}

template <class K, class V, class A> bool SCC_Map<K, V, A>::Remove(const K& key) {
    if (!SCL_ASSERT(IsValid(), "In SCC_Map::Remove(), Invalid map") || m_Count == 0)
        return false;
    Node* node = find(key, Hash(key));
    RemoveNode(node);
    return node != nullptr;
}

template <class K, class V, class A> void SCC_Map<K, V, A>::RemoveNode(Node* node) {
    if (!node)
        return;
    unlink(node);
    notify(SCC_NotifyRemoved, node);
    freeNode(node);
}

template <class K, class V, class A> void SCC_Map<K, V, A>::RemoveAll() {
    if (!SCL_ASSERT(IsValid(), "In SCC_Map::RemoveAll(), Invalid map"))
        return;
    if (m_Count > 0)
        notify(SCC_NotifyClearing, nullptr);
    destroyAll();
}

template <class K, class V, class A> void SCC_Map<K, V, A>::SetHashFunction(HashFunction function) {
    if (SCL_ASSERT(m_Count == 0, "In SCC_Map::SetHashFunction(), Map is not empty"))
        extras().hash = function;
}

} // namespace kel_ns
