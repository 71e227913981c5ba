#include "ValueSamples.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace {

using OperatorsTest = ValueTest;
using Value = UI_MacroVariant;

__extension__ typedef __int128 Wide;

// --- what the operators are to give, computed from the columns of the samples -------------------

std::string integerText(Wide value) {
    return Show(static_cast<__int64>(static_cast<std::uint64_t>(value)));
}

std::string modelArithmetic(char op, const Sample& a, const Sample& b) {
    if (a.null || b.null)
        return Error(14);
    const int sup = std::max(a.kind, b.kind);
    if (sup == 4)
        return op == '+' ? "String " + a.text + b.text : Error(23);
    if (sup < 5 || sup > 7)
        return Error(23);
    if (op == '/')
        return Show(*a.real / *b.real);
    if (sup == 6)
        return Show(op == '+'   ? *a.real + *b.real
                    : op == '-' ? *a.real - *b.real
                                : *a.real * *b.real);
    const Wide x = *a.integer;
    const Wide y = *b.integer;
    return integerText(op == '+' ? x + y : op == '-' ? x - y : x * y);
}

std::string modelDivision(char op, const Sample& a, const Sample& b) {
    if (a.null || b.null)
        return Error(14);
    if (op == '\\' && b.integer && *b.integer == 0)
        return Error(20);
    if (!a.integer || !b.integer)
        return Error(23);
    if (*b.integer == 0)
        return Error(20);
    const Wide x = *a.integer;
    return integerText(op == '\\' ? x / *b.integer : x % *b.integer);
}

std::string modelPower(const Sample& a, const Sample& b) {
    if (a.null || b.null)
        return Error(14);
    if (a.kind != 5 && a.kind != 6)
        return Error(22);
    if (b.kind != 5 && b.kind != 6)
        return Error(21);
    if (b.kind == 6 && *a.real < 0)
        return Error(18);
    if (*b.real < 0 && *a.real == 0)
        return Error(19);
    return Show(std::pow(*a.real, *b.real));
}

std::string modelBits(char op, const Sample& a, const Sample& b) {
    if (a.null || b.null) {
        if (op == '^')
            return Error(14);
        if (a.null && b.null)
            return "Null";
        const __int64 known = a.null ? b.bits : a.bits;
        if (op == '|')
            return known ? Show(known) : "Null";
        return known ? "Null" : "Integer 0";
    }
    for (int kind : {a.kind, b.kind}) {
        if (kind == 2 || kind == 3 || kind == 9 || kind == 13)
            return Error(34);
    }
    const __int64 bits = op == '^'   ? a.bits ^ b.bits
                         : op == '|' ? a.bits | b.bits
                                     : a.bits & b.bits;
    return a.kind == 7 && b.kind == 7 ? Show(bits != 0) : Show(bits);
}

std::string modelLogic(bool both, const Sample& a, const Sample& b) {
    if (a.null || b.null)
        return Error(14);
    return Show(both ? a.bits && b.bits : a.bits || b.bits);
}

std::string modelEqual(const Sample& a, const Sample& b) {
    if (a.null || b.null)
        return Error(14);
    switch (std::max(a.kind, b.kind)) {
    case 1: // neither is a constant here
    case 2: // only Nothing is here
    case 13:
        return "True";
    case 4:
    case 12:
        return Show(a.text == b.text);
    case 5:
        return Show(*a.integer == *b.integer);
    case 6:
        return Show(*a.real == *b.real);
    case 7:
        if (a.kind == 4 || b.kind == 4)
            return "False";
        return Show((*a.integer != 0) == (*b.integer != 0));
    case 9: {
        // What is no array counts as an empty one.
        auto count = [](const Sample& s) { return std::string(s.name) == "Array" ? 2 : 0; };
        return Show(count(a) == count(b));
    }
    case 11:
        return a.handle && b.handle ? Show(*a.handle == *b.handle) : Error(23);
    default:
        return "Empty";
    }
}

std::string modelDifferent(const Sample& a, const Sample& b) {
    const std::string equal = modelEqual(a, b);
    return equal == "True" ? "False" : equal.starts_with("error") ? equal : "True";
}

template <class Relation>
std::string modelOrder(const Sample& a, const Sample& b, Relation holds, bool ordersScripts) {
    if (a.null || b.null)
        return Error(14);
    const int sup = std::max(a.kind, b.kind);
    if (sup == 4 || (sup == 12 && ordersScripts))
        return Show(holds(a.text.compare(b.text), 0));
    if (sup == 5 || sup == 7)
        return Show(holds(*a.integer, *b.integer));
    if (sup == 6)
        return Show(holds(*a.real, *b.real));
    if (sup == 11)
        return a.handle && b.handle ? Show(holds(*a.handle, *b.handle)) : Error(23);
    return "Empty";
}

struct BinaryOperator {
    const char* name;
    std::function<Value(const Value&, const Value&)> apply;
    std::function<std::string(const Sample&, const Sample&)> model;
};

std::vector<BinaryOperator> allBinaryOperators() {
    using S = const Sample&;
    using V = const Value&;
    return {
        {"+", [](V a, V b) { return a + b; }, [](S a, S b) { return modelArithmetic('+', a, b); }},
        {"-", [](V a, V b) { return a - b; }, [](S a, S b) { return modelArithmetic('-', a, b); }},
        {"*", [](V a, V b) { return a * b; }, [](S a, S b) { return modelArithmetic('*', a, b); }},
        {"/", [](V a, V b) { return a / b; }, [](S a, S b) { return modelArithmetic('/', a, b); }},
        {"\\", [](V a, V b) { return a.IntDiv(b); },
         [](S a, S b) { return modelDivision('\\', a, b); }},
        {"%", [](V a, V b) { return a % b; }, [](S a, S b) { return modelDivision('%', a, b); }},
        {"Power", [](V a, V b) { return a.Power(b); }, modelPower},
        {"Xor", [](V a, V b) { return a ^ b; }, [](S a, S b) { return modelBits('^', a, b); }},
        {"Or", [](V a, V b) { return a | b; }, [](S a, S b) { return modelBits('|', a, b); }},
        {"And", [](V a, V b) { return a & b; }, [](S a, S b) { return modelBits('&', a, b); }},
        {"&&", [](V a, V b) { return a && b; }, [](S a, S b) { return modelLogic(true, a, b); }},
        {"||", [](V a, V b) { return a || b; }, [](S a, S b) { return modelLogic(false, a, b); }},
        {"==", [](V a, V b) { return a == b; }, modelEqual},
        {"!=", [](V a, V b) { return a != b; }, modelDifferent},
        {"<", [](V a, V b) { return a < b; },
         [](S a, S b) { return modelOrder(a, b, std::less<>(), false); }},
        {"<=", [](V a, V b) { return a <= b; },
         [](S a, S b) { return modelOrder(a, b, std::less_equal<>(), true); }},
        {">", [](V a, V b) { return a > b; },
         [](S a, S b) { return modelOrder(a, b, std::greater<>(), false); }},
        {">=", [](V a, V b) { return a >= b; },
         [](S a, S b) { return modelOrder(a, b, std::greater_equal<>(), false); }},
    };
}

TEST_F(OperatorsTest, EveryKindWithEveryKind) {
    SampleTargets targets;
    const std::vector<Sample> samples = AllSamples(targets);
    for (const BinaryOperator& op : allBinaryOperators()) {
        for (const Sample& a : samples) {
            for (const Sample& b : samples) {
                const Value left = a.make();
                const Value right = b.make();
                EXPECT_EQ(Outcome([&] { return op.apply(left, right); }), op.model(a, b))
                    << a.name << ' ' << op.name << ' ' << b.name;
            }
        }
    }
}

TEST_F(OperatorsTest, UnaryOperators) {
    SampleTargets targets;
    for (const Sample& a : AllSamples(targets)) {
        SCOPED_TRACE(a.name);
        const Value value = a.make();
        const bool isWhole = a.kind == 5 || a.kind == 7;
        std::string minus = Error(23);
        if (a.null)
            minus = Error(14);
        else if (a.kind == 1)
            minus = "Integer 0";
        else if (isWhole)
            minus = integerText(-Wide{*a.integer});
        else if (a.kind == 6)
            minus = Show(-*a.real);
        EXPECT_EQ(Outcome([&] { return -value; }), minus);
        EXPECT_EQ(Outcome([&] { return ~value; }), a.null    ? Error(14)
                                                   : isWhole ? Show(~*a.integer)
                                                             : Error(23));
        std::string isFalse = Error(23);
        if (a.null)
            isFalse = Error(14);
        else if (a.kind == 1)
            isFalse = "True";
        else if (a.kind == 4 || a.kind == 12)
            isFalse = Show(a.text.empty());
        else if (isWhole || a.kind == 11)
            isFalse = Show(*a.integer == 0);
        else if (a.kind == 6)
            isFalse = Show(*a.real == 0);
        EXPECT_EQ(Outcome([&] { return !value; }), isFalse);
    }
    EXPECT_EQ(Show(-Value(0.0)), "Double -0");
    EXPECT_EQ(Show(!Value(std::nan(""))), "False");
}

TEST_F(OperatorsTest, IntegersAtTheirEdges) {
    constexpr __int64 lowest = std::numeric_limits<__int64>::min();
    constexpr __int64 highest = std::numeric_limits<__int64>::max();
    const __int64 edges[] = {lowest,     lowest + 1, -4294967296, -2147483648, -3,
                             -1,         0,          1,           2,           7,
                             2147483647, 4294967295, 4294967296,  highest - 1, highest};
    for (Wide x : edges) {
        for (Wide y : edges) {
            const Value a(static_cast<__int64>(x));
            const Value b(static_cast<__int64>(y));
            EXPECT_EQ(Show(a + b), integerText(x + y));
            EXPECT_EQ(Show(a - b), integerText(x - y));
            EXPECT_EQ(Show(a * b), integerText(x * y));
            EXPECT_EQ(Show(a == b), Show(x == y));
            EXPECT_EQ(Show(a < b), Show(x < y));
            EXPECT_EQ(Show(a >= b), Show(x >= y));
            EXPECT_EQ(Outcome([&] { return a.IntDiv(b); }), y ? integerText(x / y) : Error(20));
            EXPECT_EQ(Outcome([&] { return a % b; }), y ? integerText(x % y) : Error(20));
        }
    }
}

TEST_F(OperatorsTest, RealsAtTheirEdges) {
    const double infinity = std::numeric_limits<double>::infinity();
    const double edges[] = {-infinity, -1e300, -2.5, -0.0,     0.0,         5e-324,
                            0.5,       1,      1e18, infinity, std::nan("")};
    for (double x : edges) {
        for (double y : edges) {
            const Value a(x);
            const Value b(y);
            EXPECT_EQ(Show(a + b), Show(x + y));
            EXPECT_EQ(Show(a - b), Show(x - y));
            EXPECT_EQ(Show(a * b), Show(x * y));
            EXPECT_EQ(Show(a / b), Show(x / y));
            EXPECT_EQ(Show(a == b), Show(x == y));
            EXPECT_EQ(Show(a != b), Show(!(x == y)));
            EXPECT_EQ(Show(a < b), Show(x < y));
            EXPECT_EQ(Show(a <= b), Show(x <= y));
            EXPECT_EQ(Show(a > b), Show(x > y));
            EXPECT_EQ(Show(a >= b), Show(x >= y));
        }
    }
    EXPECT_EQ(Show(Value(7.5).IntDiv(Value(2))), "Integer 4");
    EXPECT_EQ(Show(Value(7) % Value(2.5)), "Integer 1");
    EXPECT_EQ(Show(Value(2).Power(Value(-1))), "Double 0.5");
    EXPECT_EQ(Show(Value(0).Power(Value(0))), "Double 1");
}

TEST_F(OperatorsTest, TextComparesByBytes) {
    EXPECT_EQ(Show(Value("a") < Value("B")), "False");
    EXPECT_EQ(Show(Value("a") == Value("A")), "False");
    EXPECT_EQ(Show(Value("z") < Value("\xC3\xA9")), "True");
    EXPECT_EQ(Show(Value(SYS_String("a\0b", 3)) == Value(SYS_String("a\0c", 3))), "False");
    EXPECT_EQ(Show(Value(SYS_String("a\0", 2)) + Value("b")), "String " + std::string("a\0b", 3));
}

TEST_F(OperatorsTest, UnsetValuesAreEqualAndConstantsStandAlone) {
    UI_MacroVariantParam x(false);
    UI_MacroVariantParam y(false);
    EXPECT_EQ(Show(Value(&x) == Value(&y)), "True");
    EXPECT_EQ(Show(x == Value()), "True");
    EXPECT_EQ(Show(Value(&x) == Value::Empty()), "False");
    EXPECT_EQ(Show(Value(&Value::Empty()) == Value::Empty()), "True");

    BareObject first;
    BareObject second;
    EXPECT_EQ(Show(Value(&first) == Value(&first)), "True");
    EXPECT_EQ(Show(Value(&first) == Value(&second)), "False");
    EXPECT_EQ(Show(Value(&first) == Value()), "False");
}

TEST_F(OperatorsTest, ConstantsHoldingReferencesAreNotFollowed) {
    UI_MacroVariantParam variable(Value(5), false);
    const UI_MacroVariantParam constant(Value(&variable), true);
    EXPECT_EQ(Outcome([&] { return constant + Value(1); }), Error(23));
    EXPECT_EQ(Outcome([&] { return Value::Null() + Value(1); }), Error(14));
    EXPECT_EQ(Show(Value::Null() | Value(1)), "Integer 1");
}

std::vector<int> s_Order;

Value noteOne(int, Value*) {
    s_Order.push_back(1);
    return Value(1);
}

Value noteTwo(int, Value*) {
    s_Order.push_back(2);
    return NullValue();
}

TEST_F(OperatorsTest, OperandsAreReadOnceFromTheLeft) {
    s_Order.clear();
    EXPECT_EQ(Outcome([] { return Value(&noteTwo) + Value(&noteOne); }), Error(14));
    EXPECT_EQ(s_Order, (std::vector<int>{2, 1}));
    EXPECT_EQ(Show(Value(&noteOne) & Value(&noteOne)), "Integer 1");
    EXPECT_EQ(s_Order.size(), 4u);
}

std::unique_ptr<UI_MacroVariantParam> s_Victim;

Value destroyVictim(int, Value*) {
    s_Victim.reset();
    return Value(1);
}

TEST_F(OperatorsTest, ReadingTheRightOperandMayDestroyTheLeftOne) {
    for (int round = 0; round < 2; ++round) {
        s_Victim = std::make_unique<UI_MacroVariantParam>(round ? Value("text") : Value(), false);
        const Value reference(s_Victim.get());
        EXPECT_EQ(Outcome([&] { return reference + Value(&destroyVictim); }), Error(14));
    }
}

// --- arrays -------------------------------------------------------------------------------------

Value nest(int levels) {
    Value value(1);
    for (int i = 0; i < levels; ++i)
        value = ListOf({value});
    return value;
}

TEST_F(OperatorsTest, ArraysCompareByBoundsAndElements) {
    const Value list = ListOf({Value(1), Value("x"), ListOf({Value(2), Value(3)})});
    Value copy(list);
    EXPECT_EQ(Show(list == copy), "True");
    EXPECT_EQ(Show(ListOf({Value(1)}) == ListOf({Value(1.0)})), "True");
    EXPECT_EQ(Show(ListOf({Value(1)}) == ListOf({Value(1), Value(2)})), "False");
    copy[2][1] = Value(4);
    EXPECT_EQ(Show(list == copy), "False");
    EXPECT_EQ(Show(list != copy), "True");
    EXPECT_EQ(Show(Value(UI_MacroArray(1, 2)) == Value(UI_MacroArray(2, 3))), "False");
    EXPECT_EQ(Show(Value(UI_MacroArray(1, 2)) == Value(UI_MacroArray(1, 2))), "True");
    // Elements that have no answer to equality are different, and Null cannot be compared.
    EXPECT_EQ(Show(ListOf({OfKind(vvtMissing)}) == ListOf({OfKind(vvtMissing)})), "False");
    EXPECT_EQ(Outcome([] { return ListOf({NullValue()}) == ListOf({Value(1)}); }), Error(14));
    UI_MacroVariantParam variable(ListOf({Value(1)}), false);
    EXPECT_EQ(Show(ListOf({Value(&variable)}) == ListOf({ListOf({Value(1)})})), "True");
}

TEST_F(OperatorsTest, DeepArraysCompareUpToTheLimit) {
    EXPECT_EQ(Show(nest(1000) == nest(1000)), "True");
    EXPECT_EQ(Outcome([] { return nest(1001) == nest(1001); }), Error(42));
}

} // namespace
