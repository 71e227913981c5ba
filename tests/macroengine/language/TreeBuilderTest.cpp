// What each statement becomes: text to tree.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../../system/AssertRecorder.h"
#include "ParseText.h"

namespace {

struct Row {
    const char* text;
    const char* tree;
};

void expectTree(const Row& row) {
    Parsed parsed = ParseText(row.text);
    EXPECT_TRUE(parsed.ok) << row.text << "\n" << parsed.full << parsed.error;
    EXPECT_EQ(OnOneLine(parsed.tree), row.tree) << row.text;
}

template <std::size_t N> void expectTrees(const Row (&rows)[N]) {
    for (const Row& row : rows)
        expectTree(row);
}

TEST(TreeBuilder, WordOperators) {
    expectTrees({
        {"x = not a and b or 1 mod 2",
         "Statement let {Object x; BinaryOp or {BinaryOp and {UnaryOp not {ObjectExec "
         "{Object a}}; ObjectExec {Object b}}; BinaryOp mod {LongValue 1; LongValue 2}}}"},
        {"x = a is nothing",
         "Statement let {Object x; BinaryOp is {ObjectExec {Object a}; ObjectExec {Object "
         "nothing}}}"},
        {"x = true imp false eqv 1 xor 2.5",
         "Statement let {Object x; BinaryOp imp {BoolValue true; BinaryOp eqv {BoolValue "
         "false; BinaryOp xor {LongValue 1; DoubleValue 2.5}}}}"},
    });
}

TEST(TreeBuilder, AWithBlockThatEndsByTheOtherWordIsReported) {
    for (const char* text : {"With a\nEnd WithDlg", "WithDlg a\nEnd With"}) {
        AssertRecorder asserts;
        EXPECT_TRUE(ParseText(text).ok) << text;
        EXPECT_FALSE(asserts.Take().empty()) << text;
    }
}

TEST(TreeBuilder, NamesAndCalls) {
    expectTrees({
        {"", ""},
        {":::\n\n:", ""},
        {"a.b 1, 2", "Statement call {ObjectExec {Object .b() call {ObjectExec {Object a}; "
                     "VariantList {LongValue 1; LongValue 2}}}}"},
        {"Foo , 1", "Statement call {ObjectExec {Object Foo() call {VariantList {MissingValue; "
                    "LongValue 1}}}}"},
        {"Call f(1)", "Statement call {ObjectExec {Object f() call {VariantList {LongValue 1}}}}"},
        {"set a.b = c(1)(2)",
         "Statement set {Object .b {ObjectExec {Object a}}; ObjectExec {Object .() "
         "{ObjectExec {Object c() {VariantList {LongValue 1}}}; VariantList {LongValue "
         "2}}}}"},
        {"Let x = .y()", "Statement let {Object x; ObjectExec {Object .y() {VariantList}}}"},
        {"Stop", "Statement call {ObjectExec {Object Stop call}}"},
    });
}

TEST(TreeBuilder, IfForms) {
    expectTrees({
        {"If 1 Then b : c : d",
         "If {LongValue 1; IfCond {Statement call {ObjectExec {Object b call}}; Statement "
         "call {ObjectExec {Object c call}}}}; Statement call {ObjectExec {Object d call}}"},
        {"If 1 Then b Else c : d",
         "If else {LongValue 1; IfCond {Statement call {ObjectExec {Object b call}}}; "
         "Statement call {ObjectExec {Object c call}}; Statement call {ObjectExec {Object "
         "d call}}}"},
        {"If 1 Then\nElseIf 2 Then\na\nElse\nb\nEnd If",
         "If else {LongValue 1; IfCond; LongValue 2; IfCond {Statement call {ObjectExec "
         "{Object a call}}}; Statement call {ObjectExec {Object b call}}}"},
    });
}

TEST(TreeBuilder, SelectAndLoops) {
    expectTrees({
        {"Select Case x : Case 1, 2 : y : Case Else : z : End Select",
         "Select else {ObjectExec {Object x}; VariantList {LongValue 1; LongValue 2}; "
         "SelectCase {Statement call {ObjectExec {Object y call}}}; Statement call "
         "{ObjectExec {Object z call}}}"},
        {"For i = 1 To 2\nExit For\nNext i",
         "ForStm {ForCond i {LongValue 1; LongValue 2; DoubleValue 1}; Exit for; Next}"},
        {"For Each v In a : Next", "ForStm {ForeachCond v {ObjectExec {Object a}}; Next}"},
        {"Do Until 1\nExit Do\nLoop", "DoLoop {WhileCond {UnaryOp until {LongValue 1}}; Exit do}"},
        {"Do\nLoop While 1", "DoLoop {WhileCond {LongValue 1}; Loop}"},
        {"Do : a : Loop Until 1",
         "DoLoop {Statement call {ObjectExec {Object a call}}; WhileCond {UnaryOp until "
         "{LongValue 1}}; Loop}"},
        {"While 1\nWend", "WhileWend {WhileCond {LongValue 1}}"},
        {"With 1\n.x = 2\nEnd With",
         "With {LongValue 1; WithContext; Statement let {Object .x; LongValue 2}}"},
    });
}

TEST(TreeBuilder, FileStatements) {
    expectTrees({
        {"Open \"f\" For Input Access Read Lock Read Write As #1 Len = 8",
         "OpenFile input read lockreadwrite {StringValue \"f\"; LongValue 1; LongValue 8}"},
        {"Open \"f\" For Random As 1",
         "OpenFile random readwrite shared {StringValue \"f\"; LongValue 1; LongValue 0}"},
        {"Print #1, 1 2; Tab Spc(3)",
         "Statement print {VariantList {LongValue 1; LongValue 2; FunctionValue ;; "
         "FunctionValue Tab; VariantValList {FunctionValue Spc; LongValue 3}}; LongValue "
         "1}"},
        {"Print #1,", "Statement print {VariantList; LongValue 1}"},
        {"Input #1, a, b", "Statement input {VariantList {Object a; Object b}; LongValue 1}"},
        {"Close : Close #1, 2",
         "Statement close {VariantList}; Statement close {VariantList {LongValue 1; "
         "LongValue 2}}"},
        {"Width #1, 80 : Erase a : Randomize",
         "Statement width {LongValue 1; LongValue 80}; Statement erase {Object a}; "
         "Statement randomize {LongValue 1}"},
    });
}

TEST(TreeBuilder, Declarations) {
    expectTrees({
        {"Dim a, b(3), c(), d(1 To 2, 4)",
         "Dim {VarDecl b {SubscriptList {Subscript {LongValue 3}}}; VarDecl c "
         "{SubscriptList}; VarDecl d {SubscriptList {Subscript {LongValue 1; LongValue "
         "2}; Subscript {LongValue 4}}}}"},
        {"Dim a", ""},
        {"ReDim Preserve a(1), b(2)",
         "Redim preserve {ArrRedeclList {ArrRedecl a {SubscriptList {Subscript {LongValue "
         "1}}}; ArrRedecl b {SubscriptList {Subscript {LongValue 2}}}}}"},
        {"Private Const a = -1, b = vbTab, c = Null",
         "Const Private a, b, c {UnaryOp - {LongValue 1}; StringValue \"\\x09\"; Object "
         "Null}"},
        {"Option Explicit", ""},
    });
}

TEST(TreeBuilder, ProceduresStandBesideTheModuleCode) {
    expectTrees({
        {"' Adds two.\nPublic Default Function f(a, ByVal b, ByRef c())\nf = a\nExit Function\n"
         "End Function\nx",
         "Statement call {ObjectExec {Object x call}}; Function Public Default Function "
         "f(ByRef a, ByVal b, ByRef c()) \"Adds two.\" {Statement let {Object f; "
         "ObjectExec {Object a}}; Exit function; FunctionEnd}"},
        {"' Not about s\nx = 1 ' nor this\n\nPrivate Sub s : End Sub : Sub t()\nEnd Sub",
         "Statement let {Object x; LongValue 1}; Function Private Sub s() {FunctionEnd}; "
         "Function Sub t() {FunctionEnd}"},
    });
}

} // namespace
