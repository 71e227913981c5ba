#include "../AssertRecorder.h"

#include <SCC_SafePointer.h>

#include <functional>
#include <memory>

using namespace kel_ns;

namespace {

struct Object;
struct Holder {
    SCC_SafePointer<Object> pointer; // Object is not complete here
};

int s_Alive = 0;

struct Object : SCC_SafeBuffer {
    Object() { ++s_Alive; }
    Object(const Object& other) : SCC_SafeBuffer(other), tag(other.tag) { ++s_Alive; }
    Object& operator=(const Object&) = default;
    ~Object() override { --s_Alive; }
    char tag = 't';
    Holder next;
};
struct Special : Object {};
struct Small : SCC_SafeBuffer {
    char inPadding = 0;
};

static_assert(sizeof(SCC_SafePointer<Object>) == 8);
static_assert(sizeof(SCC_SafeBuffer) == 24);
static_assert(sizeof(Small) == 24, "derived members use the base's padding");
static_assert(std::is_nothrow_move_constructible_v<SCC_SafePointer<Object>>);

class EndListener : public SCC_EventNode<void*> {
public:
    explicit EndListener(std::function<void()> action) : m_Action(std::move(action)) {}
    int OnNotification(int code, void* data) override {
        if (code == SCC_NotifyRemoved && !data)
            m_Action();
        return 0;
    }

private:
    std::function<void()> m_Action;
};

} // namespace

TEST(SCC_SafePointer, ReadsNullAfterTheTarget) {
    std::size_t blocks = SCL::cStaticAlloc::GetLiveBlocks();
    {
        auto object = std::make_unique<Special>();
        EXPECT_EQ(SCL::cStaticAlloc::GetLiveBlocks(), blocks) << "made on demand only";
        SCC_SafePointer<Special> first(object.get());
        SCC_SafePointer<Object> second = first;
        Holder third{second};
        SCC_SafePointer<const Object> constant(object.get());
        EXPECT_EQ(object->GetLockCount(), 4);
        SCC_SafePointer<Object> taken = std::move(second);
        EXPECT_EQ(second, nullptr);
        EXPECT_EQ(object->GetLockCount(), 4);
        third.pointer = third.pointer.Get();
        third = Holder(third);
        EXPECT_EQ(object->GetLockCount(), 4);
        taken = nullptr;
        EXPECT_EQ(object->GetLockCount(), 3);
        EXPECT_EQ(third.pointer->tag, 't');
        object.reset();
        EXPECT_EQ(first, nullptr);
        EXPECT_EQ(third.pointer, nullptr);
        EXPECT_EQ(constant.Get(), nullptr);
        second = third.pointer; // copying a dead pointer
        Special next;
        first = &next;
        EXPECT_EQ(first.Get(), &next);
    }
    EXPECT_EQ(SCL::cStaticAlloc::GetLiveBlocks(), blocks);
}

TEST(SCC_SafePointer, TheLastOneDeletesAPendingTarget) {
    auto* object = new Object;
    SCC_SafePointer<Object> first(object);
    SCC_SafePointer<Object> second(object);
    object->SetDeletePending();
    first = nullptr;
    EXPECT_EQ(s_Alive, 1);
    second.Clear();
    EXPECT_EQ(s_Alive, 0);

    // The way through a chain keeps each object until the pointer has moved on.
    auto* head = new Object;
    head->next.pointer = new Object;
    head->SetDeletePending();
    head->next.pointer->SetDeletePending();
    SCC_SafePointer<Object> walk(head);
    walk = walk->next.pointer;
    EXPECT_EQ(s_Alive, 1);
    EXPECT_EQ(walk->tag, 't');
    walk = walk.Get();
    EXPECT_EQ(s_Alive, 1);
    walk = nullptr;
    EXPECT_EQ(s_Alive, 0);
}

TEST(SCC_SafeBuffer, StateIsNotCopied) {
    Object object;
    SCC_SafePointer<Object> pointer(&object);
    object.SetDeletePending();
    Object copy(object);
    EXPECT_EQ(copy.GetLockCount(), 0);
    EXPECT_FALSE(copy.IsDeletePending());
    Object other;
    SCC_SafePointer<Object> toOther(&other);
    other = object;
    EXPECT_EQ(toOther, &other);
    EXPECT_FALSE(other.IsDeletePending());
    object.SetDeletePending(false);
}

TEST(SCC_SafeBuffer, ListenersHearOfTheEnd) {
    std::size_t blocks = SCL::cStaticAlloc::GetLiveBlocks();
    int ends = 0;
    SCC_SafePointer<Object> pointer;
    EndListener listener([&] {
        ++ends;
        EXPECT_EQ(pointer, nullptr);
        pointer.Clear();
    });
    {
        Object object;
        pointer = &object;
        object.GetNotifier().AddTail(listener);
    }
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(listener.GetRoot(), nullptr);
    EXPECT_EQ(SCL::cStaticAlloc::GetLiveBlocks(), blocks);
}
