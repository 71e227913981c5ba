#pragma once

#include <SCL_StaticAlloc.h>

#include <cstddef>
#include <iterator>
#include <memory>
#include <new>
#include <utility>

namespace kel_ns::SCL {

/// An ordered tree, or a row of trees: every node has any number of children in order. Nodes keep
/// their addresses. Nothing here recurses, so a tree may be as deep as memory allows.
template <class T> class SCL_Tree {
public:
    class Node {
    public:
        template <class... A>
        explicit Node(Node* parent, A&&... arguments)
            : value(std::forward<A>(arguments)...), m_Parent(parent) {}
        Node(const Node&) = delete;
        Node& operator=(const Node&) = delete;

        T value;

        Node* GetParent() const noexcept { return m_Parent; }
        Node* GetFirstChild() const noexcept { return m_FirstChild; }
        Node* GetLastChild() const noexcept { return m_LastChild; }
        Node* GetNext() const noexcept { return m_Next; }
        Node* GetPrevious() const noexcept { return m_Previous; }

        // The next node of the walk that gives a node before its children; null at the end. With
        // a root the walk stays within that node's subtree.
        Node* GetNextPreOrder(const Node* root = nullptr) const noexcept {
            if (m_FirstChild)
                return m_FirstChild;
            for (const Node* node = this; node && node != root; node = node->m_Parent)
                if (node->m_Next)
                    return node->m_Next;
            return nullptr;
        }

    private:
        friend class SCL_Tree;
        Node* m_Parent;
        Node* m_FirstChild = nullptr;
        Node* m_LastChild = nullptr;
        Node* m_Next = nullptr;
        Node* m_Previous = nullptr;
    };

    /// Walks the values in pre-order.
    class iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = T;
        using difference_type = std::ptrdiff_t;
        using pointer = T*;
        using reference = T&;

        explicit iterator(Node* node = nullptr) : m_Node(node) {}
        T& operator*() const { return m_Node->value; }
        T* operator->() const { return &m_Node->value; }
        iterator& operator++() {
            m_Node = m_Node->GetNextPreOrder();
            return *this;
        }
        iterator operator++(int) {
            iterator old = *this;
            ++*this;
            return old;
        }
        bool operator==(const iterator&) const = default;

    private:
        Node* m_Node;
    };

    SCL_Tree() = default;
    SCL_Tree(const SCL_Tree&) = delete;
    SCL_Tree& operator=(const SCL_Tree&) = delete;
    ~SCL_Tree() { Clear(); }

    /// Make a node as the last child of a parent (null: at the top level), or in front of a node.
    template <class... A> Node* AddChild(Node* parent, A&&... arguments) {
        Node* node = make(parent, std::forward<A>(arguments)...);
        link(node, nullptr);
        return node;
    }
    template <class... A> Node* InsertBefore(Node* position, A&&... arguments) {
        Node* node = make(position->m_Parent, std::forward<A>(arguments)...);
        link(node, position);
        return node;
    }

    /// Destroys the node with all below it, children before their parent. Null does nothing.
    void Remove(Node* node) {
        if (!node)
            return;
        unlink(node);
        node->m_Parent = nullptr;
        while (node) {
            if (node->m_FirstChild) {
                node = node->m_FirstChild;
                continue;
            }
            Node* parent = node->m_Parent;
            if (parent)
                parent->m_FirstChild = node->m_Next;
            --m_Count;
            std::destroy_at(node);
            cStaticAlloc::deallocate(node, sizeof(Node));
            node = parent;
        }
    }

    void Clear() {
        while (m_First)
            Remove(m_First);
    }

    int GetCount() const noexcept { return m_Count; }
    bool IsEmpty() const noexcept { return m_Count == 0; }
    Node* GetFirst() const noexcept { return m_First; }
    Node* GetLast() const noexcept { return m_Last; }

    iterator begin() const { return iterator(m_First); }
    iterator end() const { return iterator(); }

private:
    template <class... A> Node* make(Node* parent, A&&... arguments) {
        void* block = cStaticAlloc::allocate(sizeof(Node));
        try {
            Node* node = ::new (block) Node(parent, std::forward<A>(arguments)...);
            ++m_Count;
            return node;
        } catch (...) {
            cStaticAlloc::deallocate(block, sizeof(Node));
            throw;
        }
    }

    Node*& firstOf(Node* parent) { return parent ? parent->m_FirstChild : m_First; }
    Node*& lastOf(Node* parent) { return parent ? parent->m_LastChild : m_Last; }

    void link(Node* node, Node* before) {
        Node* after = before ? before->m_Previous : lastOf(node->m_Parent);
        node->m_Next = before;
        node->m_Previous = after;
        (after ? after->m_Next : firstOf(node->m_Parent)) = node;
        (before ? before->m_Previous : lastOf(node->m_Parent)) = node;
    }

    void unlink(Node* node) {
        Node* after = node->m_Previous;
        Node* before = node->m_Next;
        (after ? after->m_Next : firstOf(node->m_Parent)) = before;
        (before ? before->m_Previous : lastOf(node->m_Parent)) = after;
        node->m_Next = nullptr;
        node->m_Previous = nullptr;
    }

    Node* m_First = nullptr;
    Node* m_Last = nullptr;
    int m_Count = 0;
};

} // namespace kel_ns::SCL

namespace kel_ns {
using SCL::SCL_Tree;
}
