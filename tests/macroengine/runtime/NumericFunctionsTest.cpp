// The functions of numbers, conversions, kinds and formats.

#include "macroengine/runtime/FunctionCalls.h"

#include "system/platform/TempDirectory.h"

#include <UI_MacroProcessor.h>

#include <clocale>
#include <cstdlib>

namespace {

/// Puts the process into a locale with a decimal comma, made for the purpose if there is none.
class CommaLocale {
public:
    CommaLocale() : m_Old(std::setlocale(LC_ALL, nullptr)) {
        if (std::setlocale(LC_ALL, "de_DE.UTF-8"))
            return;
        const std::string make = "localedef -i de_DE -f UTF-8 " + std::string(m_Folder.Path()) +
                                 "/de_DE.UTF-8 >/dev/null 2>&1";
        if (std::system(make.c_str()) == 0) {
            ::setenv("LOCPATH", m_Folder.Path(), 1);
            std::setlocale(LC_ALL, "de_DE.UTF-8");
        }
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;
    ~CommaLocale() {
        std::setlocale(LC_ALL, m_Old.c_str());
        ::unsetenv("LOCPATH");
    }

    bool IsInPlace() const { return std::string(std::localeconv()->decimal_point) == ","; }

private:
    const TempDirectory m_Folder;
    const std::string m_Old;
};

TEST_F(FunctionTest, Numbers) {
    check({
        {"Abs(-1.5)", "Double 1.5"},
        {"Abs(\"-2\")", "Double 2"},
        {"Log(0)", "Double -inf"},
        {"TypeName(Sqr(-1))", "String Double"},
        {"Exp(0) + Cos(0) + Sin(0) + Tan(0) + Atn(0) + Sqr(4)", "Double 4"},
        {"Max(1, 2)", "Double 2"},
        {"Max(2, 1)", "Double 2"},
        {"Min(\"3\", 2)", "Double 2"},
        {"Min(2, 3)", "Double 2"},
        {"Int(-1.5)", "Integer -2"},
        {"Fix(-1.5)", "Integer -1"},
        {"Int(2147483647.9)", "Integer 2147483647"},
        {"Int(3000000000)", "Integer -2147483648"},
        {"Fix(-3000000000)", "Integer -2147483648"},
        {"Fix(1e308)", "Integer -2147483648"},
        {"Int(Sqr(-1))", "Integer -2147483648"},
        {"Sgn(-0.4)", "Integer 0"},
        {"Sgn(-0.5)", "Integer -1"},
        {"Sgn(4294967296)", "Integer 0"},
        {"Round(2.5)", "Double 2"},
        {"Round(3.5)", "Double 4"},
        {"Round(-2.5)", "Double -2"},
        {"Round(-3.5)", "Double -4"},
        {"Round(0.49999999999999994)", "Double 0"},
        {"Round(1.25, 1)", "Double 1.2"},
        {"Round(1.23456789, 9)", "Double 1.2345680000000001"},
        {"Round(15, -3)", "Double 15"},
        {"Rgb(1, 2, 3)", "Integer 197121"},
        {"Rgb(300, 0, 0)", "Integer 255"},
        {"Rgb(0, 0, -1)", "Integer 16711680"},
    });
}

TEST_F(FunctionTest, RandomNumbers) {
    EXPECT_EQ(run("Randomize 7 : a = Rnd : b = Rnd() : Randomize 7 : r = (a = Rnd) And (b = Rnd) "
                  "And (a <> b)"),
              "True");
    EXPECT_EQ(run("a = Rnd(-1) : b = Rnd(-1) : r = (a = b) And (Rnd(0) = a) And (Rnd(0) = a)"),
              "True");
    EXPECT_EQ(run("Randomize : a = Rnd(5) : Randomize 4294967297 : r = (a = Rnd)"), "True");
    EXPECT_EQ(run("r = True\nFor i = 1 To 1000\nx = Rnd * 32768\n"
                  "If x < 0 Or x > 32767 Or x <> Int(x) Then r = False\nNext"),
              "True");
}

TEST_F(FunctionTest, Conversions) {
    check({
        {"CBool(0.5)", "True"},
        {"CBool(\"True\")", "False"},
        {"CByte(254.5)", "Integer 254"},
        {"CByte(255.5)", Error(34)},
        {"CByte(-0.4)", "Integer 0"},
        {"CByte(-1)", Error(34)},
        {"CInt(32767.5)", Error(34)},
        {"CInt(-32768.5)", "Integer -32768"},
        {"CInt(\"12abc\")", "Integer 12"},
        {"CInt(Sqr(-1))", Error(34)},
        {"CLng(3000000000.5)", "Integer 3000000000"},
        {"CLng(-2.5)", "Integer -2"},
        {"CLng(Array())", Error(23)},
        {"CDbl(\"1.5x\")", "Double 1.5"},
        {"CSng(0.1)", "Double 0.10000000000000001"},
        {"CStr(1/3)", "String 0.333333"},
        {"Str(True)", "String True"},
        {"Str(4294967296)", "String 0"},
        {"Val(\"12.5abc\")", "Double 12.5"},
        {"Val(\"12abc\")", "Integer 12"},
        {"Val(\"1e3\")", "Integer 1"},
        {"Val(\"x.\")", "Double 0"},
        {"Val(2.0)", "Integer 2"},
        {"Hex(-1)", "String FFFFFFFF"},
        {"Hex(255.5)", "String 100"},
        {"Oct(8)", "String 10"},
        {"Oct(-1)", "String 37777777777"},
        {"UBound(Array())", "Integer -1"},
        {"Array(1, \"a\", Null)", "[Integer 1, String a, Null]"},
    });
}

TEST_F(FunctionTest, Bounds) {
    EXPECT_EQ(run("Dim t(3 To 5, 7)\nr = Array(LBound(t), UBound(t), LBound(t, 2), UBound(t, 2))"),
              "[Integer 3, Integer 5, Integer 0, Integer 7]");
    EXPECT_EQ(run("Dim t(3)\nr = Array(UBound(t, 2), UBound(t, 0), UBound(t, unset))"),
              "[Integer 0, Integer 0, Integer 0]");
    check({
        {"LBound(Array(1, 2))", "Integer 0"},
        {"UBound(\"text\")", Error(34)},
        {"LBound(Null)", Error(34)},
        {"UBound(5, Array())", Error(23)},
    });
}

TEST_F(FunctionTest, KindsAsMacrosSeeThem) {
    struct Row {
        const char* value;
        const char* is; // Array, Empty, Null, Numeric, Object
        const char* typeName;
        int varType;
    };
    const Row rows[] = {
        {"unset", ".E...", "Empty", 0},        {"Null", "..N..", "Null", 1},
        {"12", "...#.", "Integer", 2},         {"1.5", "...#.", "Double", 5},
        {"\"12\"", ".....", "String", 8},      {"Nothing", ".....", "Object", 10},
        {"True", ".....", "Boolean", 11},      {"Array(1)", "A....", "Array", 8192},
        {"Thing", "....O", "Macro object", 9},
    };
    for (const Row& row : rows) {
        const std::string v = row.value;
        std::string is;
        const char* names[] = {"Array", "Empty", "Null", "Numeric", "Object"};
        for (int i = 0; i < 5; ++i)
            is +=
                run("r = Is" + std::string(names[i]) + "(" + v + ")") == "True" ? "AEN#O"[i] : '.';
        EXPECT_EQ(is, row.is) << v;
        check({{"TypeName(" + v + ")", std::string("String ") + row.typeName},
               {"VarType(" + v + ")", "Integer " + std::to_string(row.varType)}});
    }
}

TEST_F(FunctionTest, FormattedNumbers) {
    check({
        {"FormatNumber(1234.5)", "String 1,234.50"},
        {"FormatNumber(1234567.891, 2, -1, 0, -1)", "String 1,234,567.89"},
        {"FormatNumber(1234567, 0, -1, 0, 0)", "String 1234567"},
        {"FormatNumber(123, 0)", "String 123"},
        {"FormatNumber(-1, 2, -1, -1)", "String (-1.00)"},
        {"FormatNumber(-1234)", "String -1,234.00"},
        {"FormatNumber(0.7, 0, -1)", "String 01"},
        {"FormatNumber(0.7, 0, 0)", "String 1"},
        {"FormatNumber(0.5, 1, 0)", "String .5"},
        {"FormatNumber(0.999, 2, -1)", "String 0.00"},
        {"FormatNumber(5, , -2, vbUseDefault)", "String 5.00"},
        {"FormatNumber(5, -1)", "String 5.00"},
        {"FormatNumber(1e15, 0)", "String 1,000,000,000,000,000"},
        {"FormatNumber(-Log(0), 2)", "String inf"},
        {"Len(FormatNumber(1, 4096))", "Integer 4098"},
        {"Len(FormatNumber(1e308, 4096, 0, 0, 0))", "Integer 4406"},
        {"FormatNumber(1, 4097)", Error(34)},
        {"FormatNumber(1, 2000000000)", Error(34)},
        {"FormatPercent(0.5, 1, 0, 0, 0)", "String 50.0%"},
        {"FormatPercent(-0.001, 1, -1, -1)", "String (-0.1)%"},
        {"FormatPercent(12.345)", "String 1,234.50%"},
    });
}

TEST_F(FunctionTest, TheLocaleOfTheProcessChangesNothing) {
    const CommaLocale locale;
    if (!locale.IsInPlace())
        GTEST_SKIP() << "no locale with a decimal comma, and none to be made";
    check({
        {"\"\" & 1.5", "String 1.5"},
        {"\"\" & (CDbl(\"1.5\") + Val(\"0.25\") + \"1,5\")", "String 2.75"},
        {"CDbl(\"0x1.8p1\")", "Double 3"},
        {"CDbl(\"1,5\")", "Double 1"},
        {"FormatNumber(1234.5)", "String 1,234.50"},
        {"UCase(\"\xC3\xA4z\")", "String \xC3\xA4Z"},
    });
    EXPECT_EQ(Text(UI_MacroVariant(1.5).DescribeVar()), "[number: 1.5]");
}

TEST_F(FunctionTest, TheHostMayChangeTheLocale) {
    MacroHostHooks hooks;
    hooks.locale = [](int id, SYS_String& value) {
        value = id == 0x0F ? "'" : id == 0x10 ? "3;0" : id == 0x11 ? "1" : "0";
        return true;
    };
    MacroSupport::SetHostHooks(hooks);
    check({{"FormatNumber(1234)", "String 1'234.0"},
           {"FormatNumber(-0.5)", "String (-.5)"},
           {"FormatNumber(-0.5, 2, -1, 0)", "String -0.50"}});
    hooks.locale = [](int id, SYS_String& value) {
        value = "2;0";
        return id == 0x10;
    };
    MacroSupport::SetHostHooks(hooks);
    check({{"FormatNumber(1234)", "String 1234.00"}, {"FormatNumber(0.5)", "String 0.50"}});
    MacroSupport::SetHostHooks({});
}

} // namespace
