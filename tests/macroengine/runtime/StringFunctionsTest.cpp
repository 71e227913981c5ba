// The functions of strings and of lists of strings.

#include "macroengine/runtime/FunctionCalls.h"

#include <ctime>

namespace {

TEST_F(FunctionTest, PartsAndLengths) {
    check({
        {"Left(\"abc\", 2)", "String ab"},
        {"Left(\"abc\", 0)", "String "},
        {"Left(\"abc\", -1)", "String abc"},
        {"Left(\"abc\", 4294967297)", "String a"},
        {"Right(\"abc\", 2)", "String bc"},
        {"Right(\"abc\", 2147483647)", "String abc"},
        {"Right(\"abc\", -1)", "String abc"},
        {"Mid(\"abcd\", 1, 2)", "String bc"},
        {"Mid(\"abcd\", 0, 2)", "String ab"},
        {"Mid(\"abcd\", 2)", "String cd"},
        {"Mid(\"abcd\", -1)", "String "},
        {"Mid(\"abcd\", 4, 1)", "String "},
        {"Mid(\"abcd\", 1, -1)", "String bcd"},
        {"Mid(12345, True)", "String "},
        {"Len(12)", "Integer 4"},
        {"Len(\"12\")", "Integer 2"},
        {"Len(1.5)", "Integer 8"},
        {"Len(True)", "Integer 1"},
        {"Len(unset)", "Integer 0"},
        {"Len(Null)", "Integer 0"},
        {"Len(Array(1))", "Integer 0"},
        {"LCase(\"AbZ[\xC3\x84\")", "String abz[\xC3\x84"},
        {"UCase(\"aBz{\xC3\xA9\")", "String ABZ{\xC3\xA9"},
        {"StrReverse(\"abc\")", "String cba"},
        {"Trim(vbTab & \"a b\" & vbCrLf)", "String a b"},
        {"LTrim(\" a \")", "String a "},
        {"RTrim(\" a \")", "String  a"},
        {"Trim(\"  \")", "String "},
    });
    EXPECT_EQ(run("s = \"four\" : r = Len(s)"), "Integer 4") << "a variable is read first";
}

TEST_F(FunctionTest, CharactersAndRepetition) {
    check({
        {"Asc(\"A\")", "Integer 65"},
        {"Asc(\"\")", "Integer 0"},
        {"Asc(Chr(200))", "Integer -56"},
        {"Chr(321)", "String A"},
        {"Len(Chr(0) & \"a\")", "Integer 2"},
        {"Len(vbNullChar)", "Integer 0"},
        {"String(3, \"xy\")", "String xxx"},
        {"String(3, 65)", "String AAA"},
        {"String(2, 65.4)", "String AA"},
        {"Len(String(3, \"\"))", "Integer 3"},
        {"Asc(String(3, \"\"))", "Integer 0"},
        {"String(0, \"x\")", "String "},
        {"String(-1, \"x\")", Error(34)},
        {"String(2147483648, \"x\")", Error(34)},
        {"String(4294967296, \"x\")", "String "},
        {"String(1073741824, \"x\")", "out of memory"},
        {"Space(2147483647)", "out of memory"},
        {"Space(2)", "String   "},
        {"Space(-2147483648)", Error(34)},
        {"Space(1e308)", "String "},
        {"StrComp(\"a\", \"B\")", "Integer 1"},
        {"StrComp(\"a\", \"B\", 1)", "Integer -1"},
        {"StrComp(\"a\", \"A\", 2)", "Integer 0"},
        {"StrComp(\"a\", \"A\", unset)", "Integer 1"},
        {"StrComp(\"a\", Chr(200))", "Integer -1"},
        {"StrComp(\"a\", \"a\" & Chr(0))", "Integer -1"},
    });
}

TEST_F(FunctionTest, Searching) {
    check({
        {"InStr(\"abc\", \"z\")", "Integer 0"},
        {"InStr(-5, \"abc\", \"a\")", "Integer 1"},
        {"InStr(-2147483648, \"abc\", \"a\")", "Integer 1"},
        {"InStr(2, \"abcabc\", \"a\")", "Integer 4"},
        {"InStr(2147483647, \"abcabc\", \"a\")", "Integer 0"},
        {"InStr(1, \"ABC\", \"b\", 1)", "Integer 2"},
        {"InStr(1, \"ABC\", \"b\", 0)", "Integer 0"},
        {"InStr(, \"abc\", \"b\")", "Integer 2"},
        {"InStr(3, \"abc\", \"\")", "Integer 3"},
        {"InStr(4, \"abc\", \"\")", "Integer 4"},
        {"InStr(5, \"abc\", \"\")", "Integer 0"},
        {"InStr(\"a\" & Chr(0) & \"b\", Chr(0) & \"b\")", "Integer 2"},
        {"InStr(\"xabcdefghijklmnopqrstabcdefghijklmnopqrsu\", \"abcdefghijklmnopqrsu\")",
         "Integer 22"},
        {"InStrRev(\"abcabc\", \"a\")", "Integer 4"},
        {"InStrRev(\"abcabc\", \"a\", 3)", "Integer 1"},
        {"InStrRev(\"abcabc\", \"a\", 3, 0)", "Integer 4"},
        {"InStrRev(\"abcabc\", \"BC\", 1, 1)", "Integer 5"},
        {"InStrRev(\"abc\", \"abc\", 1)", "Integer 1"},
        {"InStrRev(\"aab\", \"ab\")", "Integer 2"},
        {"InStrRev(\"aabaa\", \"ab\")", "Integer 2"},
        {"InStrRev(\"abc\", \"c\", 99)", "Integer 3"},
        {"InStrRev(\"abc\", \"\", 99)", "Integer 99"},
        {"InStrRev(\"abc\", \"\")", "Integer 3"},
        {"InStrRev(\"abc\", \"c\", 0)", "Integer 3"},
        {"InStrRev(\"\", \"a\")", "Integer 0"},
        {"InStrRev(\"uabcdefghijklmnopqrsabcdefghijklmnopqrst\", \"abcdefghijklmnopqrs\")",
         "Integer 21"},
    });
}

TEST_F(FunctionTest, Replacing) {
    check({
        {"Replace(\"aXbX\", \"X\", \"--\")", "String a--b--"},
        {"Replace(\"aaa\", \"aa\", \"a\")", "String aa"},
        {"Replace(\"aaa\", \"a\", \"b\", 2, 1)", "String aba"},
        {"Replace(\"aaa\", \"a\", \"b\", 9, 1)", "String "},
        {"Replace(\"aaa\", \"a\", \"b\", 4, 0)", "String "},
        {"Replace(\"aaa\", \"a\", \"b\", 1, 0)", "String aaa"},
        {"Replace(\"aaa\", \"a\", \"b\", 1, -2)", "String aaa"},
        {"Replace(\"aaa\", \"a\", \"\", 2, 2)", "String a"},
        {"Replace(\"aaa\", \"a\", \"b\", , 2)", "String bba"},
        {"Replace(\"AbA\", \"a\", \"x\", 1, -1, 1)", "String xbx"},
        {"Replace(\"AbA\", \"a\", \"x\", 1, -1, unset)", "String AbA"},
        {"Replace(\"aaa\", \"\", \"b\")", "String aaa"},
        {"Replace(\"\", \"a\", \"b\", 2, 1)", "String "},
        {"Replace(\"a\" & Chr(0) & \"a\", Chr(0), \"-\")", "String a-a"},
        {"Replace(\"aaa\", \"a\", \"b\", 1)", Error(34)},
    });
}

TEST_F(FunctionTest, Lists) {
    check({
        {"UBound(Split(\"\"))", "Integer -1"},
        {"Split(\"a b\")", "[String a, String b]"},
        {"Split(\"abc\", \"\")", "[String abc]"},
        {"Split(\"a,b,\", \",\")", "[String a, String b, String ]"},
        {"Split(\"a--b\", \"--\")", "[String a, String , String b]"},
        {"Split(\"a,b,c\", \",\", 2)", "[String a, String b,c]"},
        {"Split(\"a,b,c\", \",\", 1)", "[String a,b,c]"},
        {"Split(\"a,b\", \",\", 9)", "[String a, String b]"},
        {"Split(\"a,b,\", \",\", 3)", "[String a, String b, String ]"},
        {"UBound(Split(\"a,b\", \",\", 0))", "Integer -1"},
        {"UBound(Split(\"a,b\", \",\", -2))", "Integer -1"},
        {"Split(\"a b c\", , 2)", "[String a, String b c]"},
        {"Split(\"aXbxC\", \"x\", -1, 1)", "[String a, String b, String C]"},
        {"Split(\"a\" & Chr(0) & \"b\", Chr(0))", "[String a, String b]"},
        {"Join(Array(1, \"b\", True, Null))", "String 1 b True "},
        {"Join(Array(\"a\", \"b\"), \"--\")", "String a--b"},
        {"Join(Array(), \"x\")", "String "},
        {"Join(\"text\")", Error(34)},
        {"Join(Array(1), 2, 3)", Error(34)},
        {"Filter(Array(\"ab\", \"c\", \"B\"), \"b\")", "[String ab]"},
        {"Filter(Array(\"ab\", \"c\", \"B\"), \"b\", False)", "[String c, String B]"},
        {"Filter(Array(\"ab\", \"c\", \"B\"), \"b\", , 1)", "[String ab, String B]"},
        {"Filter(Array(\"ab\", \"c\", \"B\"), \"b\", unset, 1, 5)", "[String ab]"},
        {"Filter(Array(12, 3), 2)", "[String 12]"},
        {"Filter(Array(\"\", \"a\"), \"\")", "[String , String a]"},
        {"UBound(Filter(Array(), \"a\"))", "Integer -1"},
        {"Filter(\"a\", \"a\")", Error(34)},
    });
    EXPECT_EQ(run("Dim t(1, 1)\nr = Join(t)"), Error(34));
    EXPECT_EQ(run("Dim t(2)\nt(1) = \"x\"\nr = Join(t, \"|\")"), "String |x|");
    EXPECT_EQ(run("x = 1 : a = Array(x) : x = 2 : r = a(0)"), "Integer 1");
    EXPECT_EQ(run("a = Array(1) : r = Array(a) : a(0) = 2"), "[[Integer 1]]");
}

// Texts that repeat themselves are the worst case of a search; a quadratic one would take minutes.
// Measured by what this process computes, whatever else the machine does meanwhile.
TEST_F(FunctionTest, LongTextsTakeTimeInProportion) {
    const std::clock_t start = std::clock();
    EXPECT_EQ(run("s = String(1000000, \"a\") : m = String(400000, \"a\") & \"b\"\n"
                  "r = InStr(s, m) + InStrRev(s, m) + Len(Replace(s, m, \"x\"))\n"
                  "r = r + UBound(Filter(Split(s, \"a\"), m)) + Len(Replace(s, \"a\", \"bc\"))\n"
                  "r = r + Len(Join(Split(s, \"a\"), \"-\"))"),
              "Integer 3999999");
    EXPECT_LT(std::clock() - start, 5 * CLOCKS_PER_SEC);
}

// A text that is copied moves: its new place is made while the old one still stands. One that grows
// by a part of its size moves some dozens of times.
TEST_F(FunctionTest, TextsGrowInPlace) {
    const char* place = nullptr;
    int moves = 0;
    int looks = 0;
    MacroHostHooks hooks;
    hooks.statement = [&](long) {
        const UI_MacroVariant* s = MacroSupport::GetProcessor()->LookupVar("s");
        if (!s || s->GetType() != vvtString)
            return;
        ++looks;
        moves += s->GetStringVal().c_str() != place;
        place = s->GetStringVal().c_str();
    };
    MacroSupport::SetHostHooks(hooks);
    EXPECT_EQ(run("s = \"\"\nFor i = 1 To 200000\ns = s & \"x\"\nNext\n"
                  "For i = 1 To 100000\ns = s & Chr(65) & i & vbLf\nNext\nr = Len(s)"),
              "Integer 888895");
    MacroSupport::SetHostHooks(MacroHostHooks());
    EXPECT_GE(looks, 300000);
    EXPECT_LT(moves, 60);
}

TEST_F(FunctionTest, FailedAppendsLeaveTheTextAlone) {
    auto textAfter = [this](const std::string& statement) {
        const std::string outcome = run("s = \"kept\" : t = s\n" + statement);
        return outcome + ": " + ShowValue(*MacroSupport::GetProcessor()->LookupVar("s"));
    };
    MacroLimits limits;
    limits.stringBytes = 1000;
    MacroSupport::SetLimits(limits);
    EXPECT_EQ(textAfter("s = s & CByte(999)"), "error 34: String kept");
    EXPECT_EQ(textAfter("s = s & \"x\" & CByte(999)"), "error 34: String kept");
    EXPECT_EQ(textAfter("s = s & String(900, \"x\") & String(900, \"y\")"),
              "out of memory: String kept");
    EXPECT_EQ(textAfter("s = s & \"x\" : r = s & t"), "String keptxkept: String keptx");
    MacroSupport::SetLimits(MacroLimits());
}

} // namespace
