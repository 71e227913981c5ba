#pragma once

#include <SCC_Event.h>
#include <SCC_Hash.h>
#include <SCL_Assert.h>
#include <SCL_StaticAlloc.h>

#include <cstddef>
#include <cstring>
#include <iterator>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

namespace kel_ns {

/// A hash table that keeps the order in which its keys were installed. Nodes never move, so the
/// address of a value holds until its key is removed. An empty map has no table and owns nothing.
/// The map's notifier tells what happens to it by the codes of SCC_NotifyCode.
///
/// For a plain walk use range-for over the nodes; if the map may change meanwhile, SCC_MapIterator.
template <class K, class V, class Alloc = SCL::cStaticAlloc> class SCC_Map {
public:
    class Node {
    public:
        template <class... A>
        Node(const K& nodeKey, SCC_HashValue hash, A&&... arguments)
            : m_Hash(hash), key(nodeKey), value(std::forward<A>(arguments)...) {}
        Node(const Node&) = delete;
        Node& operator=(const Node&) = delete;

    private:
        friend class SCC_Map;
        Node* m_BucketNext = nullptr;
        SCC_HashValue m_Hash;
        Node* m_Next = nullptr;
        Node* m_Previous = nullptr;

    public:
        const K key;
        V value;

        // Neighbours in the order of installation.
        Node* GetNext() const noexcept { return m_Next; }
        Node* GetPrevious() const noexcept { return m_Previous; }
    };

    using HashFunction = SCC_HashValue (*)(const K& key);

    template <class N> class BasicIterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = Node;
        using difference_type = std::ptrdiff_t;
        using pointer = N*;
        using reference = N&;

        explicit BasicIterator(N* node = nullptr) : m_Node(node) {}
        N& operator*() const { return *m_Node; }
        N* operator->() const { return m_Node; }
        BasicIterator& operator++() {
            m_Node = m_Node->GetNext();
            return *this;
        }
        BasicIterator operator++(int) {
            BasicIterator old = *this;
            ++*this;
            return old;
        }
        bool operator==(const BasicIterator&) const = default;

    private:
        N* m_Node;
    };
    using iterator = BasicIterator<Node>;
    using const_iterator = BasicIterator<const Node>;

    SCC_Map() noexcept = default;
    SCC_Map(const SCC_Map& other);
    SCC_Map(SCC_Map&& other) : SCC_Map() { takeFrom(other); }
    SCC_Map& operator=(const SCC_Map& other);
    SCC_Map& operator=(SCC_Map&& other);
    ~SCC_Map();

    /// Sets the value of the key: replaces it in place if the key is there, keeping the key as it
    /// was first written, else adds it at the end. Null only after a failed assertion.
    Node* Install(const K& key, const V& value) { return install(key, value); }
    Node* Install(const K& key, V&& value) { return install(key, std::move(value)); }

    /// The node of the key, made from the arguments if it is not there; an existing value stays.
    template <class... A> Node* Emplace(const K& key, A&&... arguments);

    /// Null if the key is not there.
    V* Lookup(const K& key) {
        Node* node = lookupChecked(key);
        return node ? &node->value : nullptr;
    }
    const V* Lookup(const K& key) const {
        const Node* node = lookupChecked(key);
        return node ? &node->value : nullptr;
    }
    Node* LookupNode(const K& key) { return lookupChecked(key); }
    const Node* LookupNode(const K& key) const { return lookupChecked(key); }

    /// The same with the key's hash at hand (see Hash).
    Node* LookupNode(const K& key, SCC_HashValue hash) { return find(key, hash); }
    const Node* LookupNode(const K& key, SCC_HashValue hash) const { return find(key, hash); }

    /// True if the key was there.
    bool Remove(const K& key);
    void RemoveNode(Node* node);
    void RemoveAll();

    int GetCount() const noexcept { return m_Count; }
    bool IsEmpty() const noexcept { return m_Count == 0; }
    int GetTableSize() const noexcept { return m_TableSize; }
    bool IsValid() const noexcept { return (m_Table == nullptr) == (m_TableSize == 0); }

    /// Grows with every change of the set of keys: while it stands still, looking a key up again
    /// gives the same node.
    unsigned GetChanges() const noexcept { return m_Changes; }

    /// Null for none.
    Node* GetFirst() const noexcept { return m_First; }
    Node* GetLast() const noexcept { return m_Last; }

    iterator begin() noexcept { return iterator(m_First); }
    iterator end() noexcept { return iterator(); }
    const_iterator begin() const noexcept { return const_iterator(m_First); }
    const_iterator end() const noexcept { return const_iterator(); }

    /// Another hash than SCC_Hash; only while the map is empty.
    void SetHashFunction(HashFunction function);
    SCC_HashValue Hash(const K& key) const {
        return m_Extras && m_Extras->hash ? m_Extras->hash(key) : SCC_Hash(key);
    }

    /// Made on first use, as most maps have no listeners.
    SCC_Notifier& GetNotifier() { return extras().notifier; }

private:
    struct Extras {
        SCC_Notifier notifier{0};
        HashFunction hash = nullptr;
    };

    Extras& extras() {
        if (!m_Extras)
            m_Extras = new Extras;
        return *m_Extras;
    }
    void notify(int code, void* data) {
        if (m_Extras && m_Extras->notifier.HasListeners())
            m_Extras->notifier.Notify(code, data);
    }

    std::size_t bucketOf(SCC_HashValue hash) const noexcept {
        return hash.hash & static_cast<unsigned>(m_TableSize - 1); // sizes are powers of two
    }
    static std::size_t tableBytes(int size) noexcept {
        return static_cast<std::size_t>(size) * sizeof(Node*);
    }
    static Node** makeTable(int size) {
        void* block = Alloc().allocate(tableBytes(size), nullptr);
        std::memset(block, 0, tableBytes(size));
        return static_cast<Node**>(block);
    }
    static void freeTable(Node** table, int size) noexcept {
        Alloc().deallocate(table, tableBytes(size));
    }
    static void freeNode(Node* node) noexcept {
        std::destroy_at(node);
        Alloc().deallocate(node, sizeof(Node));
    }

    Node* find(const K& key, SCC_HashValue hash) const {
        if (m_Count == 0)
            return nullptr;
        for (Node* node = m_Table[bucketOf(hash)]; node; node = node->m_BucketNext)
            if (node->m_Hash.hash == hash.hash && (hash.exact != 0 || node->key == key))
                return node;
        return nullptr;
    }
    Node* lookupChecked(const K& key) const;
    bool readyToInstall();
    template <class U> Node* install(const K& key, U&& value);
    template <class... A> Node* append(const K& key, SCC_HashValue hash, A&&... arguments);
    void useTable(Node** table, int size) noexcept;
    void unlink(Node* node) noexcept;
    void destroyAll() noexcept;
    void takeFrom(SCC_Map& other);
    void swapItems(SCC_Map& other) noexcept;

    Node** m_Table = nullptr;
    int m_TableSize = 0;
    int m_Count = 0;
    Node* m_First = nullptr;
    Node* m_Last = nullptr;
    Extras* m_Extras = nullptr;
    unsigned m_Changes = 0;
};

} // namespace kel_ns

#include <SCC_MapImpl.h>
#include <SCC_MapIterator.h>
