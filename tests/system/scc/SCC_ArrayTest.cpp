#include "../AssertRecorder.h"

#include <SCC_Array.h>
#include <SYS_Exception.h>
#include <SYS_String.h>
#include <sccstack.h>

#include <climits>
#include <stdexcept>

using namespace kel_ns;

static_assert(sizeof(SCC_Array<SYS_String>) == 8);

namespace {

// An array of its own kind, as values hold it.
struct Nested {
    SCC_Array<Nested> items;
    int number = 0;
};

std::string textOf(const SCC_Array<SYS_String>& array) {
    std::string text;
    for (const SYS_String& element : array)
        text += element.IsEmpty() ? "." : element.c_str();
    return text;
}

SCC_Array<SYS_String> makeArray(const char* letters) {
    SCC_Array<SYS_String> array;
    for (; *letters; ++letters)
        array.Append(SYS_String(*letters, 1));
    return array;
}

// Cannot be copied or made after some time.
struct Fragile {
    Fragile() { spend(); }
    Fragile(const Fragile&) = delete;
    Fragile& operator=(const Fragile&) {
        spend();
        return *this;
    }
    ~Fragile() { --s_Alive; }
    void spend() {
        if (s_Budget-- <= 0)
            throw std::runtime_error("spent");
        ++s_Alive;
    }
    static inline int s_Budget = 0;
    static inline int s_Alive = 0;
};

} // namespace

TEST(SCC_Array, WritesSeparateFromCopies) {
    AssertRecorder asserts;
    const SCC_Array<SYS_String> original = makeArray("abc");
    using Change = void (*)(SCC_Array<SYS_String>&);
    const std::pair<Change, const char*> changes[] = {
        {[](auto& a) { a[1] = "x"; }, "axc"},
        {[](auto& a) { a.WritableData()[0] = "x"; }, "xbc"},
        {[](auto& a) { a.SetSize(2); }, "ab"},
        {[](auto& a) { a.SetSize(5); }, "abc.."},
        {[](auto& a) { a.Insert(1, 2); }, "a..bc"},
        {[](auto& a) { a.Insert(3, 1); }, "abc."},
        {[](auto& a) { a.Insert(0, 1); }, ".abc"},
        {[](auto& a) { a.Remove(0, 2); }, "c"},
        {[](auto& a) { a.Append("d"); }, "abcd"},
        {[](auto& a) { a.Append(a[0]); }, "abca"},
        {[](auto& a) { a.CheckArray(3); }, "abc."},
        {[](auto& a) { a.Clear(); }, ""},
        {[](auto& a) { std::swap(a[0], a[2]), a.Sort(); }, "abc"},
    };
    for (const auto& [change, want] : changes) {
        SCC_Array<SYS_String> copy = original;
        EXPECT_TRUE(copy.SharesBufferWith(original));
        change(copy);
        EXPECT_EQ(textOf(copy), want);
        EXPECT_EQ(textOf(original), "abc");
        EXPECT_FALSE(copy.SharesBufferWith(original));
    }
    SCC_Array<SYS_String> reader = original;
    EXPECT_EQ(std::as_const(reader)[1], "b");
    reader.CheckArray(2);
    EXPECT_TRUE(reader.IsShared());
    reader.SeparateBuffers();
    EXPECT_FALSE(original.IsShared());
}

TEST(SCC_Array, MisuseAssertsAndGoesOn) {
    AssertRecorder asserts;
    SCC_Array<SYS_String> array;
    array[0] = "lost";
    EXPECT_EQ(asserts.Take(), Messages{"In SCC_Array::operator[], No data"});
    EXPECT_EQ(std::as_const(array)[0], "");
    EXPECT_EQ(asserts.Take(), Messages{"In SCC_Array::operator[], No data"});
    array.CheckArray(0);
    array[0] = "kept";
    for (int index : {-1, 1, INT_MAX, INT_MIN}) {
        array[index] = "lost";
        EXPECT_EQ(array[index], "");
        EXPECT_EQ(std::as_const(array)[index], "");
        EXPECT_EQ(asserts.Take(), Messages(3, "In SCC_Array::operator[], Index out of bounds"));
    }
    array.CheckArray(-1);
    array.SetSize(-1);
    array.Insert(2, 1);
    array.Insert(-1, 1);
    array.Insert(0, -1);
    array.Remove(0, 2);
    EXPECT_EQ(asserts.Take().size(), 6u);
    EXPECT_EQ(textOf(array), "kept");
    EXPECT_EQ(array.GetUpperBound(), 1);
    EXPECT_THROW(array.Insert(1, INT_MAX), std::length_error);
}

TEST(SCC_Array, GrowsSeldomAndFromItself) {
    AssertRecorder asserts;
    SCC_Array<SYS_String> array = makeArray("q");
    int moves = 0;
    const SYS_String* place = array.Data();
    for (int i = 1; i < 20000; ++i) {
        array.Append(array[i - 1]);
        moves += array.Data() != place;
        place = array.Data();
    }
    EXPECT_EQ(std::as_const(array)[19999], "q");
    EXPECT_LT(moves, 40);
}

TEST(SCC_Array, HoldsArraysOfItsOwnKind) {
    AssertRecorder asserts;
    SCC_Array<Nested> outer;
    outer.SetSize(2);
    outer[0].items.SetSize(1);
    SCC_Array<Nested> copy = outer;
    copy[0].items[0].number = 5;
    EXPECT_EQ(std::as_const(outer)[0].items[0].number, 0);
    // An array may become an element of itself through a copy.
    SCC_Array<Nested> whole = outer;
    outer[1].items = whole;
    EXPECT_EQ(outer[1].items.GetCount(), 2);
    EXPECT_TRUE(std::as_const(outer)[1].items[1].items.IsEmpty());
    // Replacing an array by a part of itself.
    outer = SCC_Array<Nested>(outer[1].items);
    EXPECT_EQ(outer.GetCount(), 2);
}

TEST(SCC_Array, LeaksNothingWhenAnElementFails) {
    AssertRecorder asserts;
    std::size_t blocks = SCL::cStaticAlloc::GetLiveBlocks();
    Fragile::s_Budget = 3;
    {
        SCC_Array<Fragile> array;
        EXPECT_THROW(array.SetSize(5), std::runtime_error);
        EXPECT_EQ(array.GetCount(), 3);
        SCC_Array<Fragile> copy = array;
        Fragile::s_Budget = 3;
        EXPECT_THROW(copy.SeparateBuffers(), std::runtime_error);
        EXPECT_TRUE(copy.SharesBufferWith(array));
        Fragile::s_Budget = INT_MAX;
    }
    EXPECT_EQ(SCL::cStaticAlloc::GetLiveBlocks(), blocks);
}

TEST(SCC_Array, SortsAndFindsByComparator) {
    AssertRecorder asserts;
    struct ByNoCase : SCC_ComparatorBase {
        int Compare(const void* a, const void* b) const override {
            return static_cast<const SYS_String*>(a)->CompareNoCase(
                *static_cast<const SYS_String*>(b));
        }
    } comparator;
    SCC_Array<SYS_String> array = makeArray("bCaBd");
    SCC_Array<SYS_String> before = array;
    array.SetSort(&comparator);
    EXPECT_EQ(textOf(array), "abBCd");
    EXPECT_EQ(textOf(before), "bCaBd");
    struct {
        const char* item;
        bool found;
        int first, last;
    } cases[] = {{"B", true, 1, 3}, {"0", false, 0, 0}, {"bb", false, 3, 3}, {"z", false, 5, 5}};
    for (const auto& c : cases) {
        SYS_String item(c.item);
        int first = -1;
        int last = -1;
        EXPECT_EQ(array.FindItemPosition(&item, first, last), c.found) << c.item;
        EXPECT_EQ(first, c.first);
        EXPECT_EQ(last, c.last);
    }
    EXPECT_EQ(before.GetSort(), nullptr);
    before.Sort();
    EXPECT_EQ(textOf(before), "BCabd");
}

TEST(SCC_Stack, WorksFromTheTop) {
    AssertRecorder asserts;
    SCC_Stack<SYS_String> stack;
    for (int i = 0; i < 40; ++i)
        stack.Push(SYS_String() << i);
    EXPECT_EQ(stack.GetCount(), 40);
    EXPECT_EQ(stack.Peek(39), "0");
    SCC_Stack<SYS_String> copy = stack;
    copy.Top() = "changed";
    stack.Push(stack.Peek(2));
    EXPECT_EQ(stack.Top(), "37");
    SYS_String held("held somewhere else, too");
    const SYS_String spare = held;
    stack.Push(std::move(held));
    stack.Pop();
    stack.Pop();
    EXPECT_EQ(stack.Top(), "39");
    EXPECT_EQ(copy.Top(), "changed");
    EXPECT_TRUE(stack.IsValid());
    SCC_Stack<SYS_String> moved = std::move(copy);
    EXPECT_TRUE(copy.IsEmpty());
    EXPECT_EQ(moved.GetCount(), 40);
    moved.Clear();
    EXPECT_TRUE(moved.IsEmpty());
}

TEST(SCC_Stack, PopFreesWhatTheElementHeld) {
    AssertRecorder asserts;
    SCC_Array<int> shared;
    shared.SetSize(1);
    SCC_Stack<SCC_Array<int>> stack;
    stack.Push(shared);
    EXPECT_TRUE(shared.IsShared());
    stack.Pop();
    EXPECT_FALSE(shared.IsShared());
}

TEST(SCC_Stack, WrongIndexIsFatal) {
    AssertRecorder asserts;
    SCC_Stack<int> stack;
    EXPECT_THROW(stack.Top(), SYS_Exception);
    EXPECT_THROW(stack.Pop(), SYS_Exception);
    stack.Push(1);
    EXPECT_THROW(stack.Peek(1), SYS_Exception);
    EXPECT_THROW(stack.Peek(-1), SYS_Exception);
    EXPECT_EQ(asserts.Take(), Messages(4, "Wrong stack index"));
    EXPECT_EQ(stack.Top(), 1);
}
