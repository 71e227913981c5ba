#include "ValueSamples.h"

#include <limits>

namespace {

using Value = UI_MacroVariant;
using Bounds = std::vector<std::pair<int, int>>;
using Shape = SCC_Array<_ArraySubscript>;

constexpr int Lowest = std::numeric_limits<int>::min();
constexpr int Highest = std::numeric_limits<int>::max();

// Restores the limits that a test lowers.
class ArraysTest : public ValueTest {
protected:
    ~ArraysTest() override { MacroSupport::SetLimits(m_Limits); }

    void LimitElements(int count) {
        MacroLimits limits = m_Limits;
        limits.arrayElements = count;
        MacroSupport::SetLimits(limits);
    }

private:
    MacroLimits m_Limits = MacroSupport::GetLimits();
};

Shape shapeOf(const Bounds& bounds) {
    Shape shape;
    for (auto [lower, upper] : bounds)
        shape.Append({lower, upper});
    return shape;
}

void create(Value& array, const Bounds& bounds, bool dynamic = false) {
    Shape shape = shapeOf(bounds);
    MacroVariantArraySupport::CreateArray(&array, shape, dynamic);
}

Value declare(const Bounds& bounds) {
    Value array;
    create(array, bounds);
    return array;
}

void recreate(Value& array, const Bounds& bounds, bool preserve) {
    Shape shape = shapeOf(bounds);
    MacroVariantArraySupport::ReCreateArray(&array, shape, preserve);
}

// An action that gives nothing, as an outcome: "Empty" if it went well.
template <class Action> std::string Done(Action action) {
    return Outcome([&] {
        action();
        return Value();
    });
}

// The element reference that an index expression gives.
Value at(Value& array, std::vector<Value> indices) {
    Value result;
    array.evaluateDereference(indices.data(), static_cast<int>(indices.size()), result, derefAny);
    return result;
}

std::string element(Value& array, const std::vector<Value>& indices) {
    return Outcome([&] {
        Value found = at(array, indices);
        Value* value = found.GetRVal();
        return value ? *value : NullValue();
    });
}

std::string boundsText(const Value& array) {
    std::string text = std::to_string(array.GetArrNumDims()) + ":";
    for (int dim = 1; dim <= array.GetArrNumDims(); ++dim) {
        text += ' ' + std::to_string(array.GetArrayLowerBound(dim)) + ".." +
                std::to_string(array.GetArrayUpperBound(dim)) + '#' +
                std::to_string(array.GetArraySize(dim));
    }
    return text;
}

// Numbers all elements in the order of the walk and gives the indices as they were.
std::string walk(Value& array) {
    long inx[16];
    std::string text;
    int number = 0;
    array.resetMultiArrayInx(inx);
    for (;;) {
        std::string indices;
        for (int i = 0; i < array.GetArrNumDims(); ++i)
            indices += (i ? "," : "") + std::to_string(inx[i]);
        Value* value = array.nextMultiArrayVal(inx);
        if (!value)
            return text;
        value->SetIntVal(++number);
        text += indices + ' ';
    }
}

TEST_F(ArraysTest, StorageAndBounds) {
    UI_MacroArray array(-1, 1);
    EXPECT_EQ(array.GetCount(), 3);
    EXPECT_EQ(array.GetUpperBound(), 1);
    EXPECT_EQ(array.InBounds(-1), 1);
    EXPECT_EQ(array.InBounds(2), 0);
    EXPECT_EQ(array.InBounds(Lowest), 0);
    array[1].SetIntVal(5);

    const UI_MacroArray copy(array);
    copy[1].SetIntVal(6);
    EXPECT_EQ(Show(array[1]), "Integer 5");
    copy[4] = Value("new");
    EXPECT_EQ(copy.GetUpperBound(), 4);
    EXPECT_EQ(array.GetUpperBound(), 1);

    array.ChangeCount(0);
    EXPECT_EQ(array.GetCount(), 3);
    array.ChangeCount(1);
    EXPECT_EQ(array.GetUpperBound(), -1);
    array.ChangeBounds(7, 6);
    EXPECT_EQ(array.GetLowerBound(), 7);
    EXPECT_EQ(array.GetCount(), 1);
    array.Append(array[7]);
    EXPECT_EQ(array.GetUpperBound(), 8);
    UI_MacroArray moved(std::move(array));
    EXPECT_EQ(moved.GetUpperBound(), 8);
    moved.Clear();
    EXPECT_EQ(moved.GetUpperBound(), -1);
}

TEST_F(ArraysTest, DeclaredShapes) {
    const std::pair<Bounds, const char*> rows[] = {
        {{}, "0:"},
        {{{0, 3}}, "1: 0..3#4"},
        {{{1, 3}}, "1: 1..3#3"},
        {{{-2, -2}}, "1: -2..-2#1"},
        {{{0, 2}, {0, 3}}, "2: 0..2#3 0..3#4"},
        {{{1, 2}, {5, 7}, {-1, 0}}, "3: 1..2#2 5..7#3 -1..0#2"},
        {{{0, 2}, {0, -1}}, "2: 0..0#0 0..-1#0"},
    };
    for (const auto& [bounds, text] : rows) {
        Value array;
        create(array, bounds);
        EXPECT_EQ(boundsText(array), text);
        EXPECT_EQ(array.GetArrayType(), bounds.empty() ? ArrayDynamic : ArrayFixed);
        EXPECT_EQ(array.GetArraySize(0), 0);
        EXPECT_EQ(array.GetArraySize(array.GetArrNumDims() + 1), 0);
        create(array, bounds, true);
        EXPECT_EQ(array.GetArrayType(), ArrayDynamic);
    }
    EXPECT_EQ(Value(5).GetArraySize(1), 0);
}

TEST_F(ArraysTest, IndicesFindTheirElement) {
    Value array = declare({{0, 2}, {1, 3}});
    EXPECT_EQ(walk(array), "1,0 1,1 1,2 2,0 2,1 2,2 3,0 3,1 3,2 ");
    EXPECT_EQ(element(array, {0, 1}), "Integer 1");
    EXPECT_EQ(element(array, {2, 1}), "Integer 3");
    EXPECT_EQ(element(array, {0, 3}), "Integer 7");
    EXPECT_EQ(element(array, {1.5, "2"}), "Integer 6");
    EXPECT_EQ(element(array, {-0.4, true}), Error(29));
    EXPECT_EQ(element(array, {ListOf({1, 2})}), "Integer 5");
    UI_MacroVariantParam index(Value(2), false);
    EXPECT_EQ(element(array, {Value(&index), Value(&index)}), "Integer 6");
    // Indices are cut to 32 bits.
    EXPECT_EQ(element(array, {__int64{4294967296}, 1}), "Integer 1");
}

TEST_F(ArraysTest, WrongIndices) {
    Value array = declare({{0, 2}, {1, 3}});
    const std::pair<std::vector<Value>, int> rows[] = {
        {{1}, 28},
        {{1, 1, 1}, 28},
        {{3, 1}, 29},
        {{0, 0}, 29},
        {{0, 4}, 29},
        {{Lowest, 1}, 29},
        {{Highest, 1}, 29},
        {{OfKind(vvtMissing), 1}, 23},
        {{ListOf({1}), ListOf({1})}, 28},
        {{ListOf({1, 1}), ListOf({1})}, 30},
    };
    for (const auto& [indices, code] : rows)
        EXPECT_EQ(element(array, indices), Error(code));
    Value undimensioned = declare({});
    EXPECT_EQ(element(undimensioned, {0}), Error(28));
    Value list = ListOf({1});
    EXPECT_EQ(Outcome([&] { return list[1]; }), Error(29));
    EXPECT_EQ(Outcome([&] { return static_cast<const Value&>(list)[-1]; }), Error(29));
}

TEST_F(ArraysTest, ListsOfIndicesReachNestedArrays) {
    Value inner = ListOf({"a", "b"});
    Value outer = ListOf({1, inner});
    EXPECT_EQ(element(outer, {ListOf({1}), ListOf({1})}), "String b");
    EXPECT_EQ(element(outer, {ListOf({0}), ListOf({0})}), Error(30));
}

TEST_F(ArraysTest, MoreDimensionsThanUsual) {
    Value array = declare(Bounds(12, {0, 1}));
    std::vector<Value> indices(12, Value(1));
    at(array, indices)->Assign(Value("last"));
    EXPECT_EQ(element(array, indices), "String last");
    indices[0] = Value(0);
    EXPECT_EQ(element(array, indices), "Empty");
    long inx[12];
    array.resetMultiArrayInx(inx);
    int count = 0;
    while (array.nextMultiArrayVal(inx))
        ++count;
    EXPECT_EQ(count, 4096);
}

TEST_F(ArraysTest, WritesThroughAnIndexReachThisArrayAlone) {
    UI_MacroVariantParam original(declare({{0, 2}}), false);
    Value copy(original);
    at(original, {1})->Assign(Value("changed"));
    EXPECT_EQ(element(original, {1}), "String changed");
    EXPECT_EQ(element(copy, {1}), "Empty");
    Value reference = at(original, {1});
    original.Clear();
    EXPECT_EQ(Text(static_cast<SYS_String>(reference)), "changed");
}

TEST_F(ArraysTest, RedimensioningKeepsToItsRules) {
    Value fixed;
    create(fixed, {{0, 2}});
    walk(fixed);
    EXPECT_EQ(Done([&] { recreate(fixed, {{0, 5}}, false); }), Error(32));
    EXPECT_EQ(element(fixed, {2}), "Integer 3");

    Value array;
    create(array, {});
    recreate(array, {{1, 3}}, true);
    EXPECT_EQ(array.GetArrayType(), ArrayDynamic);
    walk(array);
    recreate(array, {{1, 5}}, true);
    EXPECT_EQ(boundsText(array), "1: 1..5#5");
    EXPECT_EQ(element(array, {3}), "Integer 3");
    EXPECT_EQ(element(array, {5}), "Empty");
    recreate(array, {{1, 2}}, true); // preserving never shrinks
    EXPECT_EQ(boundsText(array), "1: 1..5#5");
    EXPECT_EQ(Done([&] { recreate(array, {{0, 5}}, true); }), Error(33));
    EXPECT_EQ(Done([&] { recreate(array, {{1, 5}, {1, 5}}, true); }), Error(33));
    EXPECT_EQ(element(array, {3}), "Integer 3");
    recreate(array, {{1, 2}}, false);
    EXPECT_EQ(boundsText(array), "1: 1..2#2");
    EXPECT_EQ(element(array, {1}), "Empty");

    Value plain(5);
    recreate(plain, {{0, 1}}, true);
    EXPECT_EQ(boundsText(plain), "1: 0..1#2");
    EXPECT_EQ(plain.GetArrayType(), ArrayUnset);
}

TEST_F(ArraysTest, PreservingSeveralDimensions) {
    // The outermost level, which is the last subscript, is held against the first one.
    Value array;
    create(array, {{0, 1}, {0, 1}}, true);
    walk(array);
    recreate(array, {{0, 1}, {0, 2}}, true);
    EXPECT_EQ(boundsText(array), "2: 0..1#2 0..2#3");
    EXPECT_EQ(element(array, {1, 1}), "Integer 4");
    EXPECT_EQ(element(array, {0, 2}), "Empty");
    EXPECT_EQ(Done([&] { recreate(array, {{0, 1}, {0, 3}}, true); }), Error(33));
    EXPECT_EQ(element(array, {1, 1}), "Integer 4");
}

TEST_F(ArraysTest, ElementLimit) {
    LimitElements(12);
    Value array;
    EXPECT_EQ(Done([&] { create(array, {{0, 11}}); }), "Empty");
    EXPECT_EQ(Done([&] { create(array, {{0, 12}}); }), Error(20));
    EXPECT_EQ(array.GetArraySize(1), 12); // refused before anything was changed
    EXPECT_EQ(Done([&] { create(array, {{0, 2}, {0, 2}}); }), "Empty"); // 3 and 9
    EXPECT_EQ(Done([&] { create(array, {{0, 3}, {0, 2}}); }), Error(20));
    EXPECT_EQ(Done([&] { create(array, {{Lowest, Highest}}); }), Error(20));
    EXPECT_EQ(Done([&] { create(array, Bounds(40, {Lowest, Highest})); }), Error(20));
    UI_MacroArray storage;
    EXPECT_EQ(Done([&] { storage.ChangeBounds(0, 12); }), Error(20));
    EXPECT_EQ(Done([&] { storage[12]; }), Error(20));
    EXPECT_EQ(storage.GetCount(), 0);
    try {
        create(array, {{0, 12}});
    } catch (const MacroException& error) {
        EXPECT_EQ(Text(error.GetText()), "Error: Unknown error: out of memory");
    }
}

TEST_F(ArraysTest, AssignedArraysAreSeparateAtEveryLevel) {
    Value source = ListOf({1, ListOf({2, 3})});
    UI_MacroVariantParam target(false);
    target.Assign(source);
    target[1][0].SetStringVal("changed");
    EXPECT_EQ(Show(source[1][0]), "Integer 2");
    EXPECT_EQ(Show(target[1][1]), "Integer 3");

    // An array without elements gets one by being assigned.
    target.Assign(Value(UI_MacroArray()));
    EXPECT_EQ(target.GetArraySize(1), 1);
}

TEST_F(ArraysTest, EndlesslyNestedArraysEndInAnError) {
    UI_MacroVariantParam target(false);
    Value deep(1);
    for (int i = 0; i < 1000; ++i)
        deep = ListOf({deep});
    EXPECT_EQ(Done([&] { target.Assign(deep); }), "Empty");
    deep = ListOf({deep});
    EXPECT_EQ(Done([&] { target.Assign(deep); }), Error(42));

    UI_MacroVariantParam loop(ListOf({1}), false);
    loop[0] = Value(&loop);
    EXPECT_EQ(Done([&] { target.Assign(loop); }), Error(42));
    EXPECT_EQ(Outcome([&] { return Value(&loop) == Value(&loop); }), Error(42));

    // Twice the array in itself doubles with every level.
    LimitElements(1000);
    Value twice = ListOf({1, 1});
    for (int i = 0; i < 30; ++i)
        twice = ListOf({twice, twice});
    EXPECT_EQ(Done([&] { target.Assign(twice); }), Error(20));

    // Destruction does not use the native stack either.
    for (int i = 0; i < 200000; ++i)
        deep = ListOf({deep});
    deep.Clear();
    EXPECT_TRUE(deep.IsEmpty());
}

} // namespace
