// What the grammar and the tree builder refuse, and the bounds of the parser.

#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <string>

#include "ParseText.h"
#include "language/Scanner.h"

namespace {

TEST(Grammar, Refusals) {
    struct Case {
        const char* text;
        const char* error;
        long line;
    };
    const Case cases[] = {
        {"y = x = < 1", "Syntax error: ", 0},
        {"a\nx = ", "Syntax error: ", 1},
        {"Foo 1,", "Syntax error: ", 0},
        {"Set = 1", "Syntax error: ", 0},
        {"Dim x As Long", "Syntax error: ", 0},
        {"Const a = 1 + 1", "Syntax error: ", 0},
        {"vbCrLf = 1", "Syntax error: ", 0},
        {"Print #1, a, b", "Syntax error: ", 0},
        {"x = +1", "Syntax error: ", 0},
        {"x = 1 =< 2", "Syntax error: ", 0},
        {"Exit While", "Syntax error: ", 0},
        {"goto a", "Syntax error: ", 0},
        {"x = .5", "Syntax error: ", 0},
        {"x = . y", "Syntax error: ", 0},
        {"x = \xc3\xa9", "Syntax error: ", 0},
        {"Foo (a) & \"x\"", "Syntax error: ", 0},
        {"If a Then\nb", "Syntax error: ", 1},
        {"Do While a\nLoop While b", "Syntax error: ", 1},
        {"Sub f\nx", "Syntax error: ", 1},
        {"Open \"f\" For Input As #1 Foo = 2", "Syntax error: ", 0},
        {"Option Base", "Syntax error: ", 0},
        {"x\nOption Explicit", "Expected statement", 1},
        {"Do\nLoop", "Loop without end", 1},
        {"Foo (1), 2", "Mismatch between the argument lists", 0},
        {"If a Then b Else c Else d", "Error: Else without if: ", 0},
        {"If a Then\nElse\nElse\nEnd If", "Error: Else without if: ", 2},
        {"If a Then\nElse\nElseIf b Then\nEnd If", "Error: Else without if: ", 2},
        {"Select Case a\nCase Else\nCase 1\nEnd Select", "Error: End if without if: ", 2},
        {"Sub f\nEnd Function", "Error: Not in sub: ", 1},
        {"Function f\nEnd Sub", "Error: Not in function: ", 1},
        {"Sub f\nFor i = 1 To 2\nEnd Sub",
         "Error: Function or Sub End without header declared: ", 2},
        {"Sub f\nSub g\nEnd Sub\nEnd Sub", "Error: Illegal nesting: ", 1},
        {"Next", "Error: Next's var doesn't match For's var: ", 0},
        {"For i = 1 To 2\nNext I", "Error: Next's var doesn't match For's var: ", 1},
        {"For Each x In a\nNext x", "Error: Next's var doesn't match For's var: ", 1},
        {"Exit For", "Error: For loop not found: ", 0},
        {"For i = 1 To 2\nSub f\nExit For\nEnd Sub\nNext", "Error: For loop not found: ", 2},
        {"Exit Do", "Error: Do loop not found: ", 0},
        {"Exit Sub", "Error: Not in sub: ", 0},
        {"Sub f\nExit Function\nEnd Sub", "Error: Not in function: ", 1},
        {"While 1\nFor i = 1 To 2\nWend", "Error: Loop context required: ", 2},
        {"With a\nFor i = 1 To 2\nEnd With", "Error: FOR statement without NEXT: ", 2},
        {"If a Then\nFor i = 1 To 2\nEnd If", "Error: End if without if: ", 2},
        {"Dim a, A", "Error: Identifier is already in use: ", 0},
        {"Sub f\nEnd Sub\nDim F", "Error: Identifier is already in use: ", 2},
        {"Function f(a)\nDim F\nEnd Function", "Error: Identifier is already in use: ", 1},
        {"Sub f(a, A)\nEnd Sub", "Error: Identifier is already in use: ", 0},
        {"Sub f(a)\nDim A\nEnd Sub", "Error: Identifier is already in use: ", 1},
        {"For i = 1 To 2", "Error: FOR statement without NEXT: ", 0},
        {"Const c = 1\nSub s\nConst c = 2, d = 3, c = 4\nEnd Sub",
         "Error: Identifier is already in use: ", 2},
        {"Sub s\nDo\nx = 1\nEnd Sub", "Syntax error: ", 3},
        {"If a Then For i = 1 To 3 : x = i : Next", "Error: End if without if: ", 0},
        {"If a Then b = 1 : c = 1 : d = 1 Else e = 1", "Syntax error: ", 0},
        {"If a Then\nFor i = 1 To 3\nElse\nNext\nEnd If", "Error: Else without if: ", 2},
        {"x = 1\nEnd If", "Syntax error: ", 1},
        {"x = 1\nLoop", "Syntax error: ", 1},
        {"Do\nFor i = 1 To 3\nLoop", "Error: Loop context required: ", 2},
        {"Function f\nExit Sub\nEnd Function", "Error: Not in sub: ", 1},
        {"a .b \"x\"", "Syntax error: ", 0},
        {"x = 1 + _\n2", "Syntax error: ", 0},
        {"x = 1 +", "Syntax error: ", 0},
        {"_x = 1", "Syntax error: ", 0},
        {"x2$ = 1", "Syntax error: ", 0},
        {"x = x @ 2", "Syntax error: ", 0},
        {"x = 1&2", "Syntax error: ", 0},
        {"y = \"a\"&hello", "Syntax error: ", 0},
    };
    for (const Case& c : cases) {
        for (bool lineByLine : {false, true}) {
            Parsed parsed = ParseText(c.text, lineByLine);
            EXPECT_FALSE(parsed.ok) << c.text;
            EXPECT_EQ(parsed.error, c.error) << c.text;
            EXPECT_EQ(parsed.line, c.line) << c.text << (lineByLine ? " (by line)" : "");
        }
    }
}

TEST(Grammar, ErrorTextNamesFileLineAndSource) {
    EXPECT_EQ(ParseText("a\nrem\nx = = 1\r\nb").full,
              "Syntax error: \nFile test.mcr Line 4: x = = 1");
    EXPECT_EQ(ParseText("a\n\nx = = 1", true).full,
              "Syntax error: \nFile test.mcr Line 3: x = = 1");
    EXPECT_EQ(ParseText("If a Then\n").full, "Syntax error: \nFile test.mcr Line 2: ");
    EXPECT_EQ(ParseText("For i = 1 To 2").full, "");
}

TEST(Grammar, AnUnterminatedStringDropsTheRest) {
    for (bool lineByLine : {false, true}) {
        Parsed parsed = ParseText("a\nb \"c\nd = = 1\n", lineByLine);
        EXPECT_TRUE(parsed.ok);
        EXPECT_EQ(OnOneLine(parsed.tree), "Statement call {ObjectExec {Object a call}}; "
                                          "Statement call {ObjectExec {Object b call}}");
    }
    EXPECT_EQ(ParseText("x = \"a").error, "Syntax error: ");
}

std::string repeat(const char* text, int count) {
    std::string result;
    for (int i = 0; i < count; ++i)
        result += text;
    return result;
}

TEST(Grammar, TheStackHolds200States) {
    struct Case {
        const char* head;
        const char* open;
        const char* middle;
        const char* close;
        const char* tail;
        int most;
    };
    const Case cases[] = {
        {"x = ", "(", "1", ")", "", 194},
        {"x = f(", "1,", "1", "", ")", 96},
        {"f ", "1,", "1", "", "", 98},
        {"", "While 1\n", "", "Wend\n", "", 65},
        {"", "With 1\n", "", "End With\n", "", 65},
        {"", "Select Case 1\nCase 1\n", "", "End Select\n", "", 39},
        {"", "If 1 Then\nElse\n", "", "End If\n", "", 28},
    };
    for (const Case& c : cases) {
        for (int count : {c.most, c.most + 1}) {
            Parsed parsed = ParseText(c.head + repeat(c.open, count) + c.middle +
                                      repeat(c.close, count) + c.tail);
            EXPECT_EQ(parsed.ok, count == c.most) << c.open << count << parsed.error;
            EXPECT_EQ(parsed.error, count == c.most ? "" : "Syntax error: ") << c.open << count;
        }
    }
    EXPECT_EQ(ParseText("x = " + repeat("-", 300000) + "1").error, "Syntax error: ");
    EXPECT_TRUE(
        ParseText(repeat("For i = 1 To 2\n", 1000) + repeat("Next\n", 1000), false, false).ok);
    EXPECT_TRUE(ParseText("x = 1" + repeat(" + 1", 100000), false, false).ok);
}

TEST(Grammar, TheSecondParseOfAProcessorStartsAfresh) {
    MacroParser processor(true);
    processor.SetSource(new MemorySource("Sub f\nEnd Sub\nDim a\n"));
    EXPECT_TRUE(processor.Parse());
    EXPECT_TRUE(processor.Parse());
    EXPECT_NE(processor.GetProcedures().Lookup("F"), nullptr);
    EXPECT_NE(processor.LookupVar("A"), nullptr);
}

TEST(Grammar, AnExpressionCanStandForItself) {
    MacroParser processor(true);
    processor.SetSource(new MemorySource("x = 1 + y"));
    processor.GetScanner().GetState().expressionForm = true;
    ASSERT_TRUE(processor.Parse());
    std::string tree;
    DumpTree(processor.GetTree(), tree);
    EXPECT_EQ(OnOneLine(tree), "Statement call {BinaryOp = {ObjectExec {Object x}; "
                               "BinaryOp + {LongValue 1; ObjectExec {Object y}}}}");
}

TEST(Grammar, LongTextsTakeLinearTime) {
    const std::string piece = "rem remark\n' comment\nx = y + 1\nrem\n";
    auto seconds = [&](int count) {
        const std::string text = repeat(piece.c_str(), count);
        const auto start = std::chrono::steady_clock::now();
        EXPECT_TRUE(ParseText(text, false, false).ok);
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    seconds(1000);
    const double small = seconds(4000);
    EXPECT_LT(seconds(64000), 16 * small * 8 + 0.5);
}

} // namespace
