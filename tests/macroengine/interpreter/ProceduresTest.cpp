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
constexpr const char* kNoMember = "Object doesn't support this property or method: 'a'";
constexpr const char* kNoArray = "Error: Can not assign to an array: ";
constexpr const char* kOutOfRange = "Error: Array index is out of range: ";

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
    All, WrongUse,
    ::testing::Values(
        BadMacro{"Sub s(a)\nEnd Sub\ns 1, 2", 2, kInternal},
        BadMacro{"Sub s(a())\nEnd Sub\ns 1", 2, kInternal},
        BadMacro{"Sub s(ByVal a())\nEnd Sub\ns Null", 2, kInternal},
        BadMacro{"Sub s(a)\nEnd Sub\nx = Null\ns x", 3, kInternal},
        BadMacro{"Sub s(ByVal a)\na = a + 1\nEnd Sub\ns Null", 1, "Error: Object is nothing: "},
        BadMacro{"Sub s(a)\na(1) = 2\nEnd Sub\ns 5", 1, kNoMember},
        BadMacro{"a = 5\na(1) = 2", 1, kNoMember},
        BadMacro{"x = 2 + nobody(1)", 0,
                 "Object doesn't support this property or method: 'nobody'"},
        BadMacro{"Dim a(3)\na(1)(2) = 4", 1, "Object doesn't support this property or method: ''"},
        BadMacro{"Dim a(3)\na = 5", 1, kNoArray}, BadMacro{"Dim a(3)\nSet a = Result", 1, kNoArray},
        BadMacro{"Sub s(a)\na = 5\nEnd Sub\nDim x(2)\ns x", 1, kNoArray},
        BadMacro{"Dim a(3)\na(-1) = 1", 1, kOutOfRange},
        BadMacro{"Dim a(3)\ni = 4294967296\na(i * 2 - 1) = 1", 2, kOutOfRange},
        BadMacro{"Dim a(2 To 3)\nx = 1 + a(1.4)", 1, kOutOfRange},
        BadMacro{"Dim a()\nx = a(0)", 1, "Error: Incorrect array dimensions number: "},
        BadMacro{"Sub s\nEnd Sub\ns = 3", 2, "Illegal assignment: 's'"},
        BadMacro{"Sub s\nEnd Sub\nSet s = Nothing", 2, "Illegal assignment: 's'"},
        BadMacro{"Set Nothing = Result", 0, "Illegal assignment: 'Nothing'"},
        BadMacro{"Set x = Nothing\nSet x = x", 1, "Error: Cannot set a variable to itself: "}));

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

} // namespace
