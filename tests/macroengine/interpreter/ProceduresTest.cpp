// Calls, declarations and arrays under wrong use, and the limits of recursion and nesting.

#include "macroengine/objects/Library.h"

#include <UI_Macro.h>
#include <gtest/gtest.h>

#include <chrono>

namespace {

struct BadMacro {
    const char* text;
    int line; // zero-based
    const char* error;
};

std::ostream& operator<<(std::ostream& out, const BadMacro& macro) { return out << macro.text; }

constexpr const char* kInternal = "Error: Unknown error: ";

class WrongUse : public ::testing::TestWithParam<BadMacro> {};

TEST_P(WrongUse, GivesTheErrorAndLeavesAUsableProcessor) {
    Book result{""};
    UI_Macro macro(true);
    macro.Register(result, "Result");
    std::string error = "no error";
    int line = -1;
    try {
        macro.ExecuteMacroString(GetParam().text);
    } catch (const MacroException& raised) {
        error = raised.GetText().c_str();
        line = raised.GetPosition();
    }
    EXPECT_EQ(error.substr(0, error.find('\n')), GetParam().error);
    EXPECT_EQ(line, GetParam().line);
    macro.ExecuteMacroString("Function f(ByVal a, b)\nb = a\nf = a + b\nEnd Function\n"
                             "Dim x\nResult.Title = f(2, x) & x");
    EXPECT_EQ(TextOf(result.Evaluate("Title", nullptr, 0)), "42");
}

INSTANTIATE_TEST_SUITE_P(
    Arguments, WrongUse,
    ::testing::Values(
        BadMacro{"Sub s(a)\nEnd Sub\ns 1, 2", 2, kInternal},
        BadMacro{"Sub s(a)\nEnd Sub\ns", 2, kInternal},
        BadMacro{"Sub s\nEnd Sub\ns()\ns(1)", 3, kInternal},
        BadMacro{"Function f(a, b)\nEnd Function\nx = 1 + f(1)", 2, kInternal},
        BadMacro{"Sub s(a())\nEnd Sub\ns 1", 2, kInternal},
        BadMacro{"Sub s(a())\nEnd Sub\nDim x\ns x", 3, kInternal},
        BadMacro{"Sub s(ByVal a())\nEnd Sub\ns Null", 2, kInternal},
        BadMacro{"Sub s(a)\nEnd Sub\nx = Null\ns x", 3, kInternal},
        BadMacro{"Sub s(ByVal a)\na = a + 1\nEnd Sub\ns Null", 1, "Error: Object is nothing: "},
        BadMacro{"Sub s(a)\na(1) = 2\nEnd Sub\ns 5", 1,
                 "Object doesn't support this property or method: 'a'"},
        BadMacro{"nobody 1", 0, "Object doesn't support this property or method: 'nobody'"},
        BadMacro{"x = 2 + nobody(1)", 0,
                 "Object doesn't support this property or method: 'nobody'"}));

INSTANTIATE_TEST_SUITE_P(
    Arrays, WrongUse,
    ::testing::Values(
        BadMacro{"Dim a(3)\na = 5", 1, "Error: Can not assign to an array: "},
        BadMacro{"Dim a(3)\nSet a = Result", 1, "Error: Can not assign to an array: "},
        BadMacro{"Sub s(a)\na = 5\nEnd Sub\nDim x(2)\ns x", 1,
                 "Error: Can not assign to an array: "},
        BadMacro{"a = 5\na(1) = 2", 1, "Object doesn't support this property or method: 'a'"},
        BadMacro{"Dim a(3)\nx = a(4)", 1, "Error: Array index is out of range: "},
        BadMacro{"Dim a(3)\na(-1) = 1", 1, "Error: Array index is out of range: "},
        BadMacro{"Dim a(3)\ni = 4294967296\na(i * 2 - 1) = 1", 2,
                 "Error: Array index is out of range: "},
        BadMacro{"Dim a(2 To 3)\nx = 1 + a(1.4)", 1, "Error: Array index is out of range: "},
        BadMacro{"Dim a(3)\nx = a(1, 2)", 1, "Error: Incorrect array dimensions number: "},
        BadMacro{"Dim a()\nx = a(0)", 1, "Error: Incorrect array dimensions number: "},
        BadMacro{"Dim a(3)\na(1)(2) = 4", 1, "Object doesn't support this property or method: ''"},
        BadMacro{"Dim a(3)\nReDim a(4)", 1, "Error: Not a dynamic array: "},
        BadMacro{"x = 5\nErase x", 1, "Error: Unknown array: "},
        BadMacro{"ReDim a(-1)", 0, "Error: Array's lower bound is greater than the upper one: "},
        BadMacro{"Dim a(5000, 5000)", 0, "Error: Unknown error: out of memory"}));

INSTANTIATE_TEST_SUITE_P(
    Targets, WrongUse,
    ::testing::Values(
        BadMacro{"Sub s\nEnd Sub\ns = 3", 2, "Illegal assignment: 's'"},
        BadMacro{"Sub s\nEnd Sub\nSet s = Nothing", 2, "Illegal assignment: 's'"},
        BadMacro{"Const c = 1\nc = 2", 1, "Illegal assignment: 'c'"},
        BadMacro{"Const c = 1\nSet c = Result", 1, "Illegal assignment: 'c'"},
        BadMacro{"Const c = 1\nFor c = 1 To 2\nNext", 1, "Illegal assignment: 'c'"},
        BadMacro{"Dim Len\nLen = 1", 1, "Illegal assignment: 'Len'"},
        BadMacro{"Null = 3", 0, "Illegal assignment: 'Null'"},
        BadMacro{"Set Nothing = Result", 0, "Illegal assignment: 'Nothing'"},
        BadMacro{"Set x = Nothing\nSet x = x", 1, "Error: Cannot set a variable to itself: "},
        BadMacro{"Result.Pages = 3", 0, "Object does not support this property or method"}));

INSTANTIATE_TEST_SUITE_P(
    Names, WrongUse,
    ::testing::Values(
        BadMacro{"Dim a, A", 0, "Error: Identifier is already in use: "},
        BadMacro{"Sub a\nEnd Sub\nDim a", 2, "Error: Identifier is already in use: "},
        BadMacro{"Sub a(x, X)\nEnd Sub", 0, "Error: Identifier is already in use: "},
        BadMacro{"Sub a(b)\nDim B\nEnd Sub", 1, "Error: Identifier is already in use: "},
        BadMacro{"Dim Result", 0, "Error: Identifier is already in use: "},
        BadMacro{"Sub a\nSub b\nEnd Sub\nEnd Sub", 1, "Error: Illegal nesting: "},
        BadMacro{"Sub a\nExit Function\nEnd Sub", 1, "Error: Not in function: "},
        BadMacro{"Option Explicit\nSub s\nx = 1\nEnd Sub\ns", 2, "Variable is undefined : 'x'"},
        BadMacro{"Option Explicit\nFor i = 1 To 2\nNext", 1, "Variable is undefined : 'i'"},
        BadMacro{"x.y = 1", 0, "Object required: '[undefined]'"},
        BadMacro{"Set x = Nothing\nx.y", 1, "Error: Object is nothing: "}));

// --- Limits ------------------------------------------------------------------------------------

class LimitsTest : public ::testing::Test {
protected:
    LimitsTest() : kept(MacroSupport::GetLimits()) { macro.Register(result, "Result"); }
    ~LimitsTest() override { MacroSupport::SetLimits(kept); }

    std::string run(const std::string& text) {
        const std::string error = ErrorOf([&] { macro.ExecuteMacroString(text.c_str()); });
        return error == "no error" ? TextOf(result.Evaluate("Title", nullptr, 0)) : error;
    }

    Book result{""};
    MacroLimits kept;
    UI_Macro macro{true};
};

TEST_F(LimitsTest, RecursionEndsAtTheFrameLimitAndNotBefore) {
    MacroLimits limits = kept;
    limits.frames = 1000;
    MacroSupport::SetLimits(limits);
    const std::string sum = "Function sum(n)\nIf n > 0 Then sum = n + sum(n - 1)\nEnd Function\n";
    EXPECT_EQ(run(sum + "Result.Title = sum(998)"), "498501");
    EXPECT_EQ(run(sum + "Result.Title = sum(1000)"), "Error: Unknown error: out of memory");
    EXPECT_EQ(run(sum + "Result.Title = sum(10)"), "55");
}

TEST_F(LimitsTest, DeepRecursionNeedsNoNativeStack) {
    EXPECT_EQ(run("Function even(n)\nIf n > 0 Then even = odd(n - 1) Else even = True\n"
                  "End Function\n"
                  "Function odd(n)\nWith Result\nSelect Case n\nCase 0\nodd = False\nCase Else\n"
                  "odd = even(n - 1)\nEnd Select\nEnd With\nEnd Function\n"
                  "Result.Title = even(400000)"),
              "True");
}

TEST_F(LimitsTest, AnArrayByValueIsCopiedWhenItIsWritten) {
    const std::string head = "Dim big(999999)\nbig(7) = 7\n"
                             "Function look(ByVal a(), n)\nlook = a(n) + a(n - 1)\nEnd Function\n"
                             "Function change(ByVal a())\na(7) = 8\nchange = a(7)\nEnd Function\n";
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(run(head + "s = 0\nFor i = 1 To 2000\ns = s + look(big, 7)\nNext\n"
                         "Result.Title = s & \" \" & change(big) & big(7)"),
              "14000 87");
    // Two thousand copies of this array would take more than a minute.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST_F(LimitsTest, NestedArraysAreRefusedWhenTooDeepAndDestroyedWithoutRecursion) {
    EXPECT_EQ(run("Dim one(0)\nDim a\na = one\nFor i = 1 To 5000\none(0) = a\na = one\nNext"),
              "Error: Illegal nesting: ");
    UI_MacroVariant chain;
    for (int i = 0; i < 1000000; ++i) {
        UI_MacroArray level;
        level.SetSize(1);
        level[0].Take(chain);
        chain = UI_MacroVariant(level);
    }
    chain.Clear();
    EXPECT_EQ(run("Result.Title = \"alive\""), "alive");
}

} // namespace
