// What each statement becomes: text to tree.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ParseText.h"

namespace {

struct Row {
    const char* text;
    const char* tree;
};

void expectTree(const Row& row) {
    Parsed parsed = ParseText(row.text);
    EXPECT_TRUE(parsed.ok) << row.text << "\n" << parsed.full << parsed.error;
    EXPECT_EQ(parsed.tree, row.tree) << row.text;
}

template <std::size_t N> void expectTrees(const Row (&rows)[N]) {
    for (const Row& row : rows)
        expectTree(row);
}

// The expression of `x = ...`, written with brackets around every operation.
std::string expression(const std::string& text) {
    Parsed parsed = ParseText("x = " + text);
    if (!parsed.ok)
        return parsed.error;
    std::string out;
    std::size_t at = parsed.tree.find('\n', parsed.tree.find('\n') + 1) + 1;
    int open = 0;
    std::vector<std::size_t> levels;
    while (at < parsed.tree.size()) {
        std::size_t end = parsed.tree.find('\n', at);
        std::size_t level = parsed.tree.find_first_not_of(' ', at) - at;
        std::string node = parsed.tree.substr(at + level, end - at - level);
        at = end + 1;
        while (!levels.empty() && levels.back() >= level) {
            levels.pop_back();
            out += ')';
            --open;
        }
        if (node == "ObjectExec")
            continue;
        if (!out.empty() && out.back() != '(')
            out += ' ';
        node = node.substr(node.find(' ') + 1);
        out += node;
        if (at < parsed.tree.size() && parsed.tree.find_first_not_of(' ', at) - at > level &&
            node.find_first_of("+-*/\\^=<>&") == 0) {
            out += '(';
            levels.push_back(level);
            ++open;
        }
    }
    out.append(static_cast<std::size_t>(open), ')');
    return out;
}

TEST(TreeBuilder, Operators) {
    struct Case {
        const char* text;
        const char* result;
    };
    const Case cases[] = {
        {"1 + 2 * 3", "+(1 *(2 3))"},   {"1 - 2 - 3", "-(-(1 2) 3)"},
        {"-2 ^ 2", "^(-(2) 2)"},        {"2 ^ -1", "^(2 -(1))"},
        {"1 \\ 2 * 3", "\\(1 *(2 3))"}, {"1 * 2 \\ 3", "\\(*(1 2) 3)"},
        {"(1 + 2) * 3", "*(+(1 2) 3)"}, {"1 & 2 + 3", "&(1 +(2 3))"},
        {"1 = 2 = 3", "=(=(1 2) 3)"},   {"1 < > 2", "<>(1 2)"},
        {"1 < = 2", "<=(1 2)"},         {"1 > = 2", ">=(1 2)"},
        {"1 < 2 & 3", "<(1 &(2 3))"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(expression(c.text), c.result) << c.text;
}

TEST(TreeBuilder, WordOperators) {
    expectTrees({
        {"x = not a and b or 1 mod 2", "Statement let\n"
                                       "  Object x\n"
                                       "  BinaryOp or\n"
                                       "    BinaryOp and\n"
                                       "      UnaryOp not\n"
                                       "        ObjectExec\n"
                                       "          Object a\n"
                                       "      ObjectExec\n"
                                       "        Object b\n"
                                       "    BinaryOp mod\n"
                                       "      LongValue 1\n"
                                       "      LongValue 2\n"},
        {"x = a is nothing", "Statement let\n"
                             "  Object x\n"
                             "  BinaryOp is\n"
                             "    ObjectExec\n"
                             "      Object a\n"
                             "    ObjectExec\n"
                             "      Object nothing\n"},
        {"x = true imp false eqv 1 xor 2.5", "Statement let\n"
                                             "  Object x\n"
                                             "  BinaryOp imp\n"
                                             "    BoolValue true\n"
                                             "    BinaryOp eqv\n"
                                             "      BoolValue false\n"
                                             "      BinaryOp xor\n"
                                             "        LongValue 1\n"
                                             "        DoubleValue 2.5\n"},
    });
}

TEST(TreeBuilder, NamesAndCalls) {
    expectTrees({
        {"", ""},
        {":::\n\n:", ""},
        {"a.b 1, 2", "Statement call\n"
                     "  ObjectExec\n"
                     "    Object .b() call\n"
                     "      ObjectExec\n"
                     "        Object a\n"
                     "      VariantList\n"
                     "        LongValue 1\n"
                     "        LongValue 2\n"},
        {"Foo , 1", "Statement call\n"
                    "  ObjectExec\n"
                    "    Object Foo() call\n"
                    "      VariantList\n"
                    "        MissingValue\n"
                    "        LongValue 1\n"},
        {"Call f(1)", "Statement call\n"
                      "  ObjectExec\n"
                      "    Object f() call\n"
                      "      VariantList\n"
                      "        LongValue 1\n"},
        {"set a.b = c(1)(2)", "Statement set\n"
                              "  Object .b\n"
                              "    ObjectExec\n"
                              "      Object a\n"
                              "  ObjectExec\n"
                              "    Object .()\n"
                              "      ObjectExec\n"
                              "        Object c()\n"
                              "          VariantList\n"
                              "            LongValue 1\n"
                              "      VariantList\n"
                              "        LongValue 2\n"},
        {"Let x = .y()", "Statement let\n"
                         "  Object x\n"
                         "  ObjectExec\n"
                         "    Object .y()\n"
                         "      VariantList\n"},
        {"Stop", "Statement call\n"
                 "  ObjectExec\n"
                 "    Object Stop call\n"},
    });
}

TEST(TreeBuilder, IfForms) {
    expectTrees({
        {"If 1 Then b : c : d", "If\n"
                                "  LongValue 1\n"
                                "  IfCond\n"
                                "    Statement call\n"
                                "      ObjectExec\n"
                                "        Object b call\n"
                                "    Statement call\n"
                                "      ObjectExec\n"
                                "        Object c call\n"
                                "Statement call\n"
                                "  ObjectExec\n"
                                "    Object d call\n"},
        {"If 1 Then b Else c : d", "If else\n"
                                   "  LongValue 1\n"
                                   "  IfCond\n"
                                   "    Statement call\n"
                                   "      ObjectExec\n"
                                   "        Object b call\n"
                                   "  Statement call\n"
                                   "    ObjectExec\n"
                                   "      Object c call\n"
                                   "  Statement call\n"
                                   "    ObjectExec\n"
                                   "      Object d call\n"},
        {"If 1 Then\nElseIf 2 Then\na\nElse\nb\nEnd If", "If else\n"
                                                         "  LongValue 1\n"
                                                         "  IfCond\n"
                                                         "  LongValue 2\n"
                                                         "  IfCond\n"
                                                         "    Statement call\n"
                                                         "      ObjectExec\n"
                                                         "        Object a call\n"
                                                         "  Statement call\n"
                                                         "    ObjectExec\n"
                                                         "      Object b call\n"},
    });
}

TEST(TreeBuilder, SelectAndLoops) {
    expectTrees({
        {"Select Case x : Case 1, 2 : y : Case Else : z : End Select", "Select else\n"
                                                                       "  ObjectExec\n"
                                                                       "    Object x\n"
                                                                       "  VariantList\n"
                                                                       "    LongValue 1\n"
                                                                       "    LongValue 2\n"
                                                                       "  SelectCase\n"
                                                                       "    Statement call\n"
                                                                       "      ObjectExec\n"
                                                                       "        Object y call\n"
                                                                       "  Statement call\n"
                                                                       "    ObjectExec\n"
                                                                       "      Object z call\n"},
        {"For i = 1 To 2\nExit For\nNext i", "ForStm\n"
                                             "  ForCond i\n"
                                             "    LongValue 1\n"
                                             "    LongValue 2\n"
                                             "    DoubleValue 1\n"
                                             "  Exit for\n"
                                             "  Next\n"},
        {"For Each v In a : Next", "ForStm\n"
                                   "  ForeachCond v\n"
                                   "    ObjectExec\n"
                                   "      Object a\n"
                                   "  Next\n"},
        {"Do Until 1\nExit Do\nLoop", "DoLoop\n"
                                      "  WhileCond\n"
                                      "    UnaryOp until\n"
                                      "      LongValue 1\n"
                                      "  Exit do\n"},
        {"Do\nLoop While 1", "DoLoop\n"
                             "  WhileCond\n"
                             "    LongValue 1\n"
                             "  Loop\n"},
        {"Do : a : Loop Until 1", "DoLoop\n"
                                  "  Statement call\n"
                                  "    ObjectExec\n"
                                  "      Object a call\n"
                                  "  WhileCond\n"
                                  "    UnaryOp until\n"
                                  "      LongValue 1\n"
                                  "  Loop\n"},
        {"While 1\nWend", "WhileWend\n  WhileCond\n    LongValue 1\n"},
        {"With 1\n.x = 2\nEnd WithDlg", "With\n"
                                        "  LongValue 1\n"
                                        "  WithContext\n"
                                        "  Statement let\n"
                                        "    Object .x\n"
                                        "    LongValue 2\n"},
    });
}

TEST(TreeBuilder, FileStatements) {
    expectTrees({
        {"Open \"f\" For Input Access Read Lock Read Write As #1 Len = 8",
         "OpenFile input read lockreadwrite\n"
         "  StringValue \"f\"\n"
         "  LongValue 1\n"
         "  LongValue 8\n"},
        {"Open \"f\" For Random As 1", "OpenFile random readwrite shared\n"
                                       "  StringValue \"f\"\n"
                                       "  LongValue 1\n"
                                       "  LongValue 0\n"},
        {"Print #1, 1 2; Tab Spc(3)", "Statement print\n"
                                      "  VariantList\n"
                                      "    LongValue 1\n"
                                      "    LongValue 2\n"
                                      "    FunctionValue ;\n"
                                      "    FunctionValue Tab\n"
                                      "    VariantValList\n"
                                      "      FunctionValue Spc\n"
                                      "      LongValue 3\n"
                                      "  LongValue 1\n"},
        {"Print #1,", "Statement print\n  VariantList\n  LongValue 1\n"},
        {"Input #1, a, b", "Statement input\n"
                           "  VariantList\n"
                           "    Object a\n"
                           "    Object b\n"
                           "  LongValue 1\n"},
        {"Close : Close #1, 2", "Statement close\n"
                                "  VariantList\n"
                                "Statement close\n"
                                "  VariantList\n"
                                "    LongValue 1\n"
                                "    LongValue 2\n"},
        {"Width #1, 80 : Erase a : Randomize", "Statement width\n"
                                               "  LongValue 1\n"
                                               "  LongValue 80\n"
                                               "Statement erase\n"
                                               "  Object a\n"
                                               "Statement randomize\n"
                                               "  LongValue 1\n"},
    });
}

TEST(TreeBuilder, Declarations) {
    expectTrees({
        {"Dim a, b(3), c(), d(1 To 2, 4)", "Dim\n"
                                           "  VarDecl b\n"
                                           "    SubscriptList\n"
                                           "      Subscript\n"
                                           "        LongValue 3\n"
                                           "  VarDecl c\n"
                                           "    SubscriptList\n"
                                           "  VarDecl d\n"
                                           "    SubscriptList\n"
                                           "      Subscript\n"
                                           "        LongValue 1\n"
                                           "        LongValue 2\n"
                                           "      Subscript\n"
                                           "        LongValue 4\n"},
        {"Dim a", ""},
        {"ReDim Preserve a(1), b(2)", "Redim preserve\n"
                                      "  ArrRedeclList\n"
                                      "    ArrRedecl a\n"
                                      "      SubscriptList\n"
                                      "        Subscript\n"
                                      "          LongValue 1\n"
                                      "    ArrRedecl b\n"
                                      "      SubscriptList\n"
                                      "        Subscript\n"
                                      "          LongValue 2\n"},
        {"Private Const a = -1, b = vbTab, c = Null", "Const Private a, b, c\n"
                                                      "  UnaryOp -\n"
                                                      "    LongValue 1\n"
                                                      "  StringValue \"\\x09\"\n"
                                                      "  Object Null\n"},
        {"Option Explicit", ""},
    });
}

TEST(TreeBuilder, ProceduresStandBesideTheModuleCode) {
    expectTrees({
        {"' Adds two.\nPublic Default Function f(a, ByVal b, ByRef c())\nf = a\nExit Function\n"
         "End Function\nx",
         "Statement call\n"
         "  ObjectExec\n"
         "    Object x call\n"
         "Function Public Default Function f(ByRef a, ByVal b, ByRef c()) \"Adds two.\"\n"
         "  Statement let\n"
         "    Object f\n"
         "    ObjectExec\n"
         "      Object a\n"
         "  Exit function\n"
         "  FunctionEnd\n"},
        {"' Not about s\nx = 1 ' nor this\n\nPrivate Sub s : End Sub : Sub t()\nEnd Sub",
         "Statement let\n"
         "  Object x\n"
         "  LongValue 1\n"
         "Function Private Sub s()\n"
         "  FunctionEnd\n"
         "Function Sub t()\n"
         "  FunctionEnd\n"},
    });
}

} // namespace
