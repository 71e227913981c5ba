#include "../AssertRecorder.h"

#include <SCC_Event.h>
#include <SYS_String.h>

#include <functional>
#include <memory>

using namespace kel_ns;

namespace {

// Writes its letter when told, then does what the test wants of it.
class Listener : public SCC_EventNode<const char*> {
public:
    Listener(char name, std::string& log, int priority = 0)
        : m_Name(name), m_Log(log), m_Priority(priority) {}
    int GetPriority() const override { return m_Priority; }
    int OnNotification(int, const char*) override {
        m_Log += m_Name;
        if (action)
            action();
        return 0;
    }
    void OnRemoveNode() override { m_Log += '-'; }
    void OnEventEnable(bool enabled) override { m_Log += enabled ? '+' : '!'; }

    std::function<void()> action;

private:
    char m_Name;
    std::string& m_Log;
    int m_Priority;
};

class EventTest : public testing::Test {
protected:
    std::string raise() {
        log.clear();
        event->Raise(1, "text");
        return log;
    }

    std::string log;
    std::unique_ptr<SCC_Event<const char*>> event = std::make_unique<SCC_Event<const char*>>();
    Listener a{'a', log};
    Listener b{'b', log};
    Listener c{'c', log};
};

} // namespace

TEST_F(EventTest, RaisesInOrder) {
    EXPECT_FALSE(event->HasListeners());
    event->AddTail(b);
    event->AddTail(c);
    event->AddHead(a);
    EXPECT_EQ(raise(), "abc");
    Listener urgent('u', log, 5);
    Listener late('l', log, -1);
    event->AddTail(late);
    event->AddTail(urgent);
    EXPECT_EQ(raise(), "uabcl");
    b.InsertBefore(a);
    EXPECT_EQ(raise(), "ubacl");
    a.Enable(false);
    EXPECT_EQ(raise(), "ubcl");
    EXPECT_EQ(a.GetRoot(), event.get());
    EXPECT_EQ(a.GetNext(), &c);
    EXPECT_EQ(late.GetNext(), nullptr);
    event->Enable(false);
    EXPECT_EQ(raise(), "");
}

TEST_F(EventTest, ListenersMayLeaveAndJoinDuringTheWalk) {
    struct {
        const char* name;
        std::function<void(EventTest&, Listener&, Listener&, Listener&)> action; // of b
        const char* first;
        const char* second;
    } cases[] = {
        {"itself", [](auto&, auto&, auto& y, auto&) { y.Remove(); }, "ab-c", "ac"},
        {"the next", [](auto&, auto&, auto&, auto& z) { z.Remove(); }, "ab-", "ab"},
        {"the one before", [](auto&, auto& x, auto&, auto&) { x.Remove(); }, "ab-c", "bc"},
        {"all", [](auto&, auto& x, auto& y, auto& z) { x.Remove(), y.Remove(), z.Remove(); },
         "ab---", ""},
    };
    for (auto& test : cases) {
        event = std::make_unique<SCC_Event<const char*>>();
        for (Listener* listener : {&a, &b, &c})
            event->AddTail(*listener);
        b.action = [&] { test.action(*this, a, b, c); };
        EXPECT_EQ(raise(), test.first) << test.name;
        b.action = nullptr;
        EXPECT_EQ(raise(), test.second) << test.name;
    }
}

TEST_F(EventTest, RaisingAgainAndAddingDuringTheWalk) {
    event->AddTail(a);
    event->AddTail(b);
    bool again = true;
    a.action = [&] {
        if (std::exchange(again, false))
            event->Raise(2, "");
    };
    b.action = [&] {
        if (!c.GetRoot())
            event->AddTail(c);
    };
    EXPECT_EQ(raise(), "aabcbc");
    EXPECT_EQ(raise(), "abc");
}

TEST_F(EventTest, TheEventMayEndDuringTheWalk) {
    event->AddTail(a);
    event->AddTail(b);
    a.action = [&] { event.reset(); };
    EXPECT_EQ(raise(), "a--");
    EXPECT_EQ(a.GetRoot(), nullptr);
}

TEST_F(EventTest, AListenerThatEndsLeaves) {
    {
        Listener short_('s', log);
        event->AddTail(short_);
        event->AddTail(a);
        Listener copy(short_);
        EXPECT_EQ(copy.GetRoot(), nullptr);
    }
    EXPECT_EQ(raise(), "a");
    SCC_Event<const char*> other;
    other.AddTail(a); // moves over
    EXPECT_FALSE(event->HasListeners());
    EXPECT_TRUE(other.HasListeners());
}

TEST(SCC_EventHook, Forwards) {
    struct Target {
        void OnText(int code, SYS_String data) { text << code << data; }
        SYS_String text;
    } target;
    SCC_Event<SYS_String> event;
    SCC_ObjectEventHook<Target, SYS_String> method(&target, &Target::OnText);
    SCC_EventHook<SYS_String> function([&](int code, SYS_String) { target.text << code + 1; });
    SCC_EventHook<SYS_String> nothing;
    event.AddTail(method);
    event.AddTail(nothing);
    event.AddTail(function);
    event.Raise(7, "x");
    EXPECT_EQ(target.text, "7x8");
}
