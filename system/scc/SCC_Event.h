#pragma once

#include <functional>
#include <utility>

namespace kel_ns {

template <class T> class SCC_Event;
template <class T> class SCC_EventIterator;

/// A listener: derive from it, override OnNotification, and put it into the list of an event. It
/// stands in at most one list and leaves it by itself at its end. Copies stand in none.
template <class T> class SCC_EventNode {
public:
    SCC_EventNode() noexcept = default;
    SCC_EventNode(const SCC_EventNode& other) noexcept : m_Enabled(other.m_Enabled) {}
    SCC_EventNode& operator=(const SCC_EventNode&) noexcept { return *this; }
    virtual ~SCC_EventNode() { unlink(); }

    /// The event whose list this node stands in; null if in none.
    virtual SCC_EventNode* GetRoot() const { return m_Root; }

    /// The listener behind this one; null at the end of the list.
    virtual SCC_EventNode* GetNext() const {
        SCC_EventNode* node = m_Next;
        while (node && node->m_IsIterator)
            node = node->m_Next;
        return node == m_Root ? nullptr : node;
    }

    /// Leaves the list. Allowed at any time, also from within a notification of any listener.
    virtual void Remove() {
        if (!m_Root || IsEvent())
            return;
        unlink();
        OnRemoveNode();
    }

    /// Joins the list of `position` in front of it (of an event: at the end), leaving another.
    virtual void InsertBefore(SCC_EventNode& position) {
        if (&position == this || IsEvent() || !position.m_Root)
            return;
        Remove();
        linkBefore(&position);
    }

    /// Listeners of higher priority come first when AddTail finds them a place.
    virtual int GetPriority() const { return 0; }
    virtual bool IsEvent() const { return false; }

    /// A listener that is switched off is passed over. Returns the state before.
    virtual bool Enable(bool enable) { return std::exchange(m_Enabled, enable); }
    bool IsEnabled() const noexcept { return m_Enabled; }

    /// Hears an event. The result is for callers that ask one listener directly.
    virtual int OnNotification(int code, T data) {
        static_cast<void>(code);
        static_cast<void>(data);
        return 0;
    }

    /// Told after the node has left a list other than by its own destructor.
    virtual void OnRemoveNode() {}

    /// Told when the event is switched on or off.
    virtual void OnEventEnable(bool enabled) { static_cast<void>(enabled); }

private:
    friend class SCC_Event<T>;
    friend class SCC_EventIterator<T>;

    void unlink() noexcept {
        if (!m_Root)
            return;
        m_Previous->m_Next = m_Next;
        m_Next->m_Previous = m_Previous;
        m_Root = m_Next = m_Previous = nullptr;
    }
    void linkBefore(SCC_EventNode* position) noexcept {
        m_Root = position->m_Root;
        m_Next = position;
        m_Previous = position->m_Previous;
        m_Previous->m_Next = this;
        position->m_Previous = this;
    }

    SCC_EventNode* m_Root = nullptr;
    SCC_EventNode* m_Next = nullptr;
    SCC_EventNode* m_Previous = nullptr;
    bool m_Enabled = true;
    bool m_IsIterator = false;
};

/// Something that listeners can be told about: the root of their list.
template <class T> class SCC_Event : public SCC_EventNode<T> {
    using Node = SCC_EventNode<T>;

public:
    SCC_Event() noexcept { this->m_Root = this->m_Next = this->m_Previous = this; }
    SCC_Event(const SCC_Event&) = delete;
    SCC_Event& operator=(const SCC_Event&) = delete;
    ~SCC_Event() override {
        while (this->m_Next != this) {
            Node* node = this->m_Next;
            node->unlink();
            node->OnRemoveNode();
        }
    }

    bool IsEvent() const override { return true; }

    /// Switches the event on or off and tells the listeners if that is a change.
    bool Enable(bool enable) override;

    /// Put a listener first; or behind all that have no lower priority.
    void AddHead(Node& node) { node.InsertBefore(*this->m_Next); }
    void AddTail(Node& node) {
        if (&node == this)
            return;
        node.Remove();
        Node* place = this;
        for (Node* last = this->m_Previous; last != this; last = last->m_Previous) {
            if (last->m_IsIterator)
                continue;
            if (last->GetPriority() >= node.GetPriority())
                break;
            place = last;
        }
        node.InsertBefore(*place);
    }

    bool HasListeners() const { return Node::GetNext() != nullptr; }

    /// Tells every listener, from the first to the last. Listeners may come, go and raise again
    /// meanwhile, and may end the event itself.
    void Raise(int code, T data);
};

/// A walk over the listeners of an event. It stands in the list itself, behind the listener it gave
/// last, so that any listener may leave or join during the walk.
template <class T> class SCC_EventIterator : private SCC_EventNode<T> {
    using Node = SCC_EventNode<T>;

public:
    explicit SCC_EventIterator(SCC_Event<T>& event) {
        this->m_IsIterator = true;
        this->linkBefore(static_cast<Node&>(event).m_Next);
    }

    /// The next listener; null at the end, or when the event has gone.
    Node* Next() {
        Node* node = Node::GetNext();
        if (node) {
            this->unlink();
            this->linkBefore(node->m_Next);
        }
        return node;
    }
};

template <class T> bool SCC_Event<T>::Enable(bool enable) {
    bool before = Node::Enable(enable);
    if (before != enable && HasListeners()) {
        SCC_EventIterator<T> walk(*this);
        while (Node* node = walk.Next())
            node->OnEventEnable(enable);
    }
    return before;
}

template <class T> void SCC_Event<T>::Raise(int code, T data) {
    if (!this->IsEnabled() || !HasListeners())
        return;
    SCC_EventIterator<T> walk(*this);
    while (Node* node = walk.Next())
        if (node->IsEnabled())
            node->OnNotification(code, data);
}

/// Forwards to a function; does nothing while there is none.
template <class T> class SCC_EventHook : public SCC_EventNode<T> {
public:
    using Function = std::function<void(int code, T data)>;

    SCC_EventHook() = default;
    explicit SCC_EventHook(Function function) : m_Function(std::move(function)) {}
    void SetFunction(Function function) { m_Function = std::move(function); }

    int OnNotification(int code, T data) override {
        if (m_Function)
            m_Function(code, data);
        return 0;
    }

private:
    Function m_Function;
};

/// Forwards to a member function of an object, which must outlive the hook or its place in a list.
template <class C, class T> class SCC_ObjectEventHook : public SCC_EventNode<T> {
public:
    using Method = void (C::*)(int code, T data);

    SCC_ObjectEventHook(C* object, Method method) : m_Object(object), m_Method(method) {}

    int OnNotification(int code, T data) override {
        if (m_Object && m_Method)
            (m_Object->*m_Method)(code, data);
        return 0;
    }

private:
    C* m_Object;
    Method m_Method;
};

/// What a container or object tells about itself.
enum SCC_NotifyCode {
    SCC_NotifyInstalled = 1,      // data: the node
    SCC_NotifyRemoved = 2,        // data: the node; null when the owner itself ends
    SCC_NotifyElementChanged = 3, // data: index + 1
    SCC_NotifyAssigned = 6,       // the whole container has other content
    SCC_NotifyClearing = 7        // the container is about to lose all it has
};

class SCC_Notifier : public SCC_Event<void*> {
public:
    explicit SCC_Notifier(int reserved = 0) { static_cast<void>(reserved); }

    void Notify(int code, void* data) { Raise(code, data); }
};

} // namespace kel_ns
