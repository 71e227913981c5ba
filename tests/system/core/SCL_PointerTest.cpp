#include "../AssertRecorder.h"

#include <SCC_SharedPointer.h>

#include <memory>

using namespace kel_ns;

namespace {

int s_Alive = 0;

class Object : public SCL::tRefCounted<> {
public:
    Object() { ++s_Alive; }
    Object(const Object& other) : tRefCounted(other) { ++s_Alive; }
    Object& operator=(const Object&) = default;
    ~Object() override { --s_Alive; }

    SCL_Pointer<Object> next;
};

// Takes a counted pointer to itself while it ends.
class SelfReferring : public SCL::tRefCounted<> {
public:
    ~SelfReferring() override { SCL_Pointer<SelfReferring> self(this); }
};

} // namespace

TEST(tRefCounted, CountsFromZeroAndDeletesAtTheLastRelease) {
    AssertRecorder asserts;
    auto* object = new Object;
    EXPECT_EQ(object->AddRef(nullptr), 1);
    EXPECT_EQ(object->AddRef(&asserts), 2);
    auto copy = std::make_unique<Object>(*object);
    EXPECT_EQ(copy->AddRef(nullptr), 1);
    *object = *copy;
    EXPECT_EQ(object->Release(nullptr), 1);
    EXPECT_EQ(s_Alive, 2);
    EXPECT_EQ(object->Release(nullptr), 0);
    EXPECT_EQ(s_Alive, 1);
}

TEST(tRefCounted, DisabledCountLeavesTheObjectAlone) {
    AssertRecorder asserts;
    auto object = std::make_unique<Object>();
    object->DisableRefCount();
    EXPECT_TRUE(object->RefCountDisabled());
    EXPECT_EQ(object->AddRef(nullptr), -1);
    EXPECT_EQ(object->Release(nullptr), -1);
    SCL_Pointer<Object> pointer(object.get());
    pointer = nullptr;
    EXPECT_EQ(s_Alive, 1);
}

TEST(tRefCounted, ReleaseByNobodyIsAnAssertion) {
    AssertRecorder asserts;
    auto object = std::make_unique<Object>();
    object->Release(nullptr);
    EXPECT_EQ(asserts.Take().size(), 1u);
    EXPECT_EQ(object->AddRef(nullptr), 1);
}

TEST(SCL_Pointer, OwnsByCount) {
    AssertRecorder asserts;
    {
        SCL_Pointer<Object> first(new Object);
        SCL_Pointer<Object> second = first;
        SCL_Pointer<SCL::iRefCounted> base = second;
        first = nullptr;
        second = std::move(first);
        EXPECT_EQ(second, nullptr);
        EXPECT_EQ(s_Alive, 1);
        base.Reset();
        EXPECT_EQ(s_Alive, 0);
    }
    SCC_SharedPointer<Object> head(new Object);
    head->next = new Object;
    head = head->next; // the new owner comes before the old one goes
    EXPECT_EQ(s_Alive, 1);
    head = head.Get();
    EXPECT_EQ(s_Alive, 1);
    head = nullptr;
    EXPECT_EQ(s_Alive, 0);
    SCL_Pointer<SelfReferring> self(new SelfReferring);
}
