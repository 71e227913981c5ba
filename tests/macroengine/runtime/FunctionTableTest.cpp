// What holds for all built-in functions, and the named colours.

#include "macroengine/runtime/FunctionCalls.h"

#include <UI_MacroProcessor.h>

#include <map>
#include <set>

namespace {

// The counts of arguments that a function takes, as digits; more than 7 are not tried.
const std::map<std::string, std::string> kCounts = {
    {"Abs", "1"},
    {"Array", "01234567"},
    {"Asc", "1"},
    {"Atn", "1"},
    {"CBool", "1"},
    {"CByte", "1"},
    {"CDbl", "1"},
    {"CInt", "1"},
    {"CLng", "1"},
    {"CSng", "1"},
    {"CStr", "1"},
    {"Chr", "1"},
    {"Cos", "1"},
    {"Exp", "1"},
    {"Filter", "234567"},
    {"Fix", "1"},
    {"FormatNumber", "12345"},
    {"FormatPercent", "12345"},
    {"Hex", "1"},
    {"InStr", "234"},
    {"InStrRev", "234"},
    {"Int", "1"},
    {"IsArray", "1"},
    {"IsEmpty", "1"},
    {"IsNull", "1"},
    {"IsNumeric", "1"},
    {"IsObject", "1"},
    {"Join", "12"},
    {"LBound", "12"},
    {"LCase", "1"},
    {"Left", "2"},
    {"Len", "1"},
    {"Log", "1"},
    {"LTrim", "1"},
    {"Max", "2"},
    {"Mid", "23"},
    {"Min", "2"},
    {"Oct", "1"},
    {"Replace", "356"},
    {"Rgb", "3"},
    {"Right", "2"},
    {"Rnd", "01"},
    {"Round", "12"},
    {"RTrim", "1"},
    {"Sgn", "1"},
    {"Sin", "1"},
    {"Space", "1"},
    {"Split", "1234"},
    {"Sqr", "1"},
    {"StrComp", "23"},
    {"StrReverse", "1"},
    {"String", "2"},
    {"Tan", "1"},
    {"Trim", "1"},
    {"TypeName", "1"},
    {"UBound", "12"},
    {"UCase", "1"},
    {"VarType", "1"},
    {"Str", "1"},
    {"Val", "1"},
};

// A list comes first for the functions that want one, so that nothing but the count can fail.
TEST_F(FunctionTest, EveryFunctionTakesItsCountsAndNoOther) {
    const std::set<std::string> ofLists = {"Filter", "Join", "LBound", "UBound"};
    for (const auto& [name, counts] : kCounts) {
        std::string arguments;
        for (int count = 0; count <= 7; ++count) {
            if (count > 0)
                arguments += count > 1 ? ", 1" : ofLists.count(name) ? "Array(1)" : "1";
            const bool accepted = counts.find(static_cast<char>('0' + count)) != std::string::npos;
            const std::string result = run("r = " + name + "(" + arguments + ")");
            EXPECT_EQ(result != Error(34), accepted) << name << '(' << arguments << "): " << result;
        }
    }
}

// Whatever the arguments, a function gives a value or one of the errors meant for this.
TEST_F(FunctionTest, EveryFunctionStandsEveryKindAndSize) {
    const char* values[] = {"\"\"",
                            "\"text\"",
                            "0",
                            "-1",
                            "2147483647",
                            "2147483648",
                            "-2147483648",
                            "9223372036854775807",
                            "1e308",
                            "-1e308",
                            "Sqr(-1)",
                            "Log(0)",
                            "unset",
                            "Null",
                            "Nothing",
                            "True",
                            "Thing",
                            "Array()",
                            "Array(Array(1), \"x\")",
                            "\"%s%n\""};
    const std::set<std::string> allowed = {Error(34), Error(23), "out of memory"};
    MacroLimits limits;
    limits.stringBytes = 1 << 20;
    MacroSupport::SetLimits(limits);
    for (const auto& [name, counts] : kCounts) {
        for (const char count : counts) {
            for (int place = 0; place < std::max(1, count - '0'); ++place) {
                for (const char* value : values) {
                    std::string arguments;
                    for (int i = 0; i < count - '0'; ++i)
                        arguments += std::string(i ? ", " : "") + (i == place ? value : "2");
                    const std::string result = run("r = " + name + "(" + arguments + ")");
                    if (result.starts_with("error") || result == "out of memory") {
                        EXPECT_TRUE(allowed.count(result))
                            << name << '(' << arguments << "): " << result;
                    }
                }
            }
        }
    }
    MacroSupport::SetLimits(MacroLimits());
}

TEST_F(FunctionTest, NamesIgnoreCaseAndCannotBeAssigned) {
    check({{"LEFT(\"abc\", 1)", "String a"}, {"lefT(\"abc\", 1)", "String a"}});
    const std::string text = Text([&] {
        try {
            macro.Execute(new MacroInMemory("Max = 5"), SYS_String(), nullptr, 0);
        } catch (const MacroException& error) {
            return error.GetText();
        }
        return SYS_String();
    }());
    EXPECT_TRUE(text.starts_with("Illegal assignment: 'Max'")) << text;
}

TEST_F(FunctionTest, AnObjectHidesTheFunctionOfItsName) {
    MacroEval other("Left");
    macro.Register(other, nullptr);
    EXPECT_EQ(run("r = TypeName(Left)"), "String Macro object");
    macro.Remove(other);
    EXPECT_EQ(run("r = Left(\"abc\", 1)"), "String a");
}

class Palette : public MacroEval {
public:
    Palette() : MacroEval("Palette") {}
    using MacroEval::getColorVarNameByRGB;
    using MacroEval::operator=;
    void OnParserReset(MacroSupport& processor) override {
        regColorConstantInParser(processor);
        regColorConstantInParser(processor);
        regConstantInParser(processor, "Answer", UI_MacroVariant(42));
        regConstantInParser(processor, "answer", UI_MacroVariant(1));
    }
};

TEST_F(FunctionTest, ColoursAreConstantsOnceTheHostHasRegisteredThem) {
    EXPECT_EQ(run("r = vbColorRed"), "Empty");
    Palette palette;
    macro.Register(palette, "Palette");
    check({{"vbColorRed", "Integer 255"},
           {"vbcolorblack", "Integer 0"},
           {"vbColorMediumSlateBlue", "Integer 15624315"},
           {"Answer", "Integer 42"}});
    EXPECT_NE(run("vbColorRed = 1").find("Illegal assignment: 'vbColorRed'"), std::string::npos);
    EXPECT_EQ(Text(Palette::getColorVarNameByRGB(255)), "vbColorRed");
    EXPECT_EQ(Text(Palette::getColorVarNameByRGB(0x475AFF)), "vbColorTomato");
    EXPECT_EQ(Text(Palette::getColorVarNameByRGB(-5)), "-5");
    macro.Remove(palette);
}

} // namespace
