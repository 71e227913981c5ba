// A macro does the same whether its text comes as a whole or line by line.

#include "EngineFixture.h"

namespace {

using FeedTest = EngineTest;

struct Row {
    const char* name;
    const char* text;
    Lines output;
};

const Row kMacros[] = {
    {"nothing", "", {}},
    {"blank lines and comments",
     "\n' at the front\n\nLog.Add 1 ' behind\n   \n'\nLog.Add 2\n' at the end",
     {"1", "2"}},
    {"blocks of If",
     "For i = 1 To 4\n  If i = 1 Then\n    Log.Add \"one\"\n  ElseIf i = 2 Then\n"
     "    Log.Add \"two\"\n    Log.Add \"zwei\"\n  Else\n\n    Log.Add \"many\"\n  End If\nNext i",
     {"one", "two", "zwei", "many", "many"}},
    {"a true If without a body runs its Else",
     "If True Then\n  ' nothing\nElse\n  Log.Add \"else\"\nEnd If",
     {"else"}},
    {"If on one line",
     "a = 0\nIf a Then Log.Add 1 : Log.Add 2 : Log.Add 3\n"
     "If a Then Log.Add 4 Else Log.Add 5 : Log.Add 6\n"
     "If 1 Then If a Then Log.Add 7 Else Log.Add 8",
     {"3", "5", "6", "8"}},
    {"Select",
     "For i = 1 To 4\n  Select Case i\n    Case 1, 3\n      Log.Add \"odd\"\n    Case 2\n"
     "      Log.Add \"two\"\n    Case Else\n      Log.Add \"else\"\n  End Select\nNext",
     {"odd", "two", "odd", "else"}},
    {"loops with a condition",
     "Do While n < 2\n  n = n + 1\n  Log.Add n\nLoop\nDo Until n = 4\n  n = n + 1\nLoop\nLog.Add "
     "n\n"
     "Do\n  n = n - 1\nLoop While n > 1\nDo\n  n = n + 1\n  Log.Add n\nLoop Until True\n"
     "While n > 1\n  n = n - 1\nWend\nLog.Add n",
     {"1", "2", "4", "2", "1"}},
    {"inner loops left early start anew",
     "For i = 1 To 2\n  For j = 5 To 1 Step -2\n    If j = 1 Then Exit For\n    Log.Add i & j\n"
     "  Next j\nNext i\nLog.Add i & j\nDo\n  k = k + 1\n  If k = 3 Then\n    Exit Do\n  End If\n"
     "Loop\nLog.Add k",
     {"15", "13", "25", "23", "31", "3"}},
    {"arrays",
     "Dim a(2), b(1 To 2, 3)\nFor i = 0 To 2\n  a(i) = i * i\nNext\nb(2, 3) = \"corner\"\n"
     "For Each e In a\n  Log.Add e\nNext\nLog.Add b(2, 3)\nReDim d(1)\nd(1) = a\nd(1)(2) = 9\n"
     "Log.Add d(1)(2), a(2)",
     {"0", "1", "4", "corner", "9", "4"}},
    {"arguments by reference and by value",
     "Dim a(2)\nx = 1\ninc x\nkeep x\nCall inc(a(1))\nLog.Add x, a(1)\n"
     "Sub inc(n)\n  n = n + 1\nEnd Sub\nSub keep(ByVal n)\n  n = n + 100\nEnd Sub",
     {"2", "1"}},
    {"recursion",
     "Log.Add fib(15)\nFunction fib(n)\n  If n < 2 Then\n    fib = n\n    Exit Function\n  End If\n"
     "  fib = fib(n - 1) + fib(n - 2)\nEnd Function",
     {"610"}},
    {"With on an object",
     "With Log\n  .Add 1\n  show\n  .Add 3\nEnd With\nSub show\n  With Log\n    .Add 2\n  End "
     "With\n"
     "End Sub",
     {"1", "2", "3"}},
    {"constants and declared names",
     "Option Explicit\nConst c = -2, s = \"text\"\nDim x\nx = c * 3\nLog.Add x, s\ny = 1",
     {"-6", "text", "Variable is undefined : 'y'"}},
    {"a constant takes no value",
     "Const c = 1\nLog.Add c\nc = 2",
     {"1", "Illegal assignment: 'c'"}},
    {"built-in functions",
     "Log.Add Len(\"abc\") + 1, Abs(-2.5), CStr(7) & \"!\", TypeName(\"s\") = TypeName(CStr(1))",
     {"4", "2.5", "7!", "True"}},
    {"operators",
     "Log.Add -2 ^ 2, 7 \\ 2 * 2, 2 + 3 * 4 Mod 5, \"a\" & 1 + 2, 1 < 2 = True, Not 0, 7 / 2",
     {"4", "1", "4", "a3", "True", "True", "3.5"}},
    {"an unset name",
     "Log.Add 1\nfoo 1\nLog.Add 2",
     {"1", "Object doesn't support this property or method: 'foo'"}},
    {"an unclosed string ends the text",
     "Log.Add 1\nLog.Add 2 : x = 3 + 4\nLog.Add 5 : \"open\nLog.Add 6",
     {"1", "2", "5"}},
    {"a syntax error in a block",
     "If 1 Then\n  x = = 2\nEnd If",
     {"Syntax error: \nLine 2:   x = = 2"}},
    {"an open block", "Log.Add 1\nWhile True\n", {"Syntax error: \nLine"}},
    {"an open loop", "Log.Add 1\nFor i = 1 To 3", {}},
};

} // namespace

TEST_F(FeedTest, BothWaysOfGivingTextDoTheSame) {
    for (const Row& row : kMacros) {
        Lines expected = row.output;
        const bool byPrefix = !expected.empty() && expected.back() == "Syntax error: \nLine";
        for (const Feed feed : {Feed::Whole, Feed::LineByLine}) {
            const char* const how = feed == Feed::Whole ? "as a whole" : "line by line";
            Lines output = runText(row.text, feed);
            if (byPrefix && !output.empty())
                output.back() = output.back().substr(0, expected.back().size());
            EXPECT_EQ(output, expected) << row.name << ", " << how;
        }
    }
}

TEST_F(FeedTest, ErrorsNameTheSameLine) {
    const char* const texts[] = {
        "x = 1\n\n' c\nfoo 1\n",
        "Sub s\n  x = 1\n  foo 1\nEnd Sub\n\ns\n",
        "For i = 1 To 2\n  If i = 2 Then\n    foo 1\n  End If\nNext\n",
        "x = 1\nx = (1\n",
        "x = 1\nIf 1 Then\nElse\nElse\nEnd If\n",
        "For i = 1 To 2\nNext j\n",
        "Dim a\nx = 1\nDim A\n",
    };
    for (const char* text : texts) {
        int positions[2] = {-1, -2};
        std::string errors[2];
        for (const Feed feed : {Feed::Whole, Feed::LineByLine}) {
            const auto i = static_cast<std::size_t>(feed);
            try {
                execute(textSource(text, feed));
            } catch (const MacroException& error) {
                positions[i] = error.GetPosition();
                errors[i] = error.GetText().View();
            }
        }
        EXPECT_EQ(positions[0], positions[1]) << text;
        EXPECT_GT(positions[0], 0) << text;
        EXPECT_EQ(errors[0], errors[1]) << text;
    }
}
