#pragma once

#include <SCC_Map.h>

namespace kel_ns {

/// A walk over a map that may change meanwhile. It listens to the map: when its node is removed it
/// stands between that node's neighbours, and Next goes on with the one behind. When the map is
/// cleared, assigned to or destroyed the walk is at its end.
///
///     for (SCC_MapIterator<SYS_StrNoCase, int> it(map); it.IsValid(); it.Next())
///         if (it.GetValue() == 0)
///             map.Remove(it.GetKey());
template <class K, class V, class Alloc = SCL::cStaticAlloc>
class SCC_MapIterator : public SCC_EventNode<void*> {
public:
    using Map = SCC_Map<K, V, Alloc>;
    using Node = typename Map::Node;

    /// Starts at the first node.
    explicit SCC_MapIterator(Map& map) : m_Map(&map) {
        map.GetNotifier().AddHead(*this); // hears of a removal before others act on it
        Reset();
    }
    SCC_MapIterator(const SCC_MapIterator&) = delete;
    SCC_MapIterator& operator=(const SCC_MapIterator&) = delete;

    /// The node that the iterator stands on; null if on none.
    Node* GetHandle() const noexcept { return m_Between ? nullptr : m_Node; }
    void SetHandle(Node* node) noexcept {
        m_Node = node;
        m_Between = false;
    }
    void ClearHandle() noexcept { SetHandle(nullptr); }

    /// All movements return whether there is a node to stand on.
    bool GetFirst() noexcept { return moveTo(m_Map ? m_Map->GetFirst() : nullptr); }
    bool GetLast() noexcept { return moveTo(m_Map ? m_Map->GetLast() : nullptr); }
    bool Next() noexcept { return moveTo(m_Between || !m_Node ? m_Node : m_Node->GetNext()); }
    bool Previous() noexcept {
        if (m_Between && !m_Node)
            return GetLast();
        return moveTo(m_Node ? m_Node->GetPrevious() : nullptr);
    }
    void Reset() noexcept { GetFirst(); }

    bool IsValid() const noexcept { return GetHandle() != nullptr; }
    bool IsEnd() const noexcept { return m_Node == nullptr; }

    /// Without a node an assertion; then a scratch value.
    V& GetValue() const {
        if (!SCL_ASSERT(IsValid(), "In SCC_MapIteratorFast::GetValue, Invalid iterator"))
            return scratch<V>();
        return m_Node->value;
    }
    const K& GetKey() const {
        if (!SCL_ASSERT(IsValid(), "In SCC_MapIteratorFast::GetKey, Invalid iterator"))
            return scratch<K>();
        return m_Node->key;
    }
    V* operator->() const {
        if (!SCL_ASSERT(IsValid(), "In SCC_MapIteratorFast::operator ->, Invalid iterator"))
            return &scratch<V>();
        return &m_Node->value;
    }
    V& operator*() const { return GetValue(); }
    V* GetValuePointer() const noexcept { return IsValid() ? &m_Node->value : nullptr; }

    int OnNotification(int code, void* data) override {
        if (code == SCC_NotifyRemoved && data) {
            if (data == m_Node) {
                m_Node = m_Node->GetNext();
                m_Between = true;
            }
        } else if (code == SCC_NotifyRemoved || code == SCC_NotifyClearing ||
                   code == SCC_NotifyAssigned) {
            ClearHandle();
        }
        return 0;
    }

    void OnRemoveNode() override {
        m_Map = nullptr;
        ClearHandle();
    }

private:
    bool moveTo(Node* node) noexcept {
        SetHandle(node);
        return node != nullptr;
    }

    // Never destroyed, since others may still refer to it at the end. A type that cannot be made
    // from nothing leaves only the fatal way out.
    template <class T> static T& scratch() {
        if constexpr (std::is_default_constructible_v<T>) {
            static T* const element = new T();
            std::destroy_at(element);
            return *::new (static_cast<void*>(element)) T();
        } else {
            SSM_Throw();
        }
    }

    Map* m_Map;
    Node* m_Node = nullptr;
    bool m_Between = false; // the node stood on is gone; m_Node is the one behind
};

} // namespace kel_ns
