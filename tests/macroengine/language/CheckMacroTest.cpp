// Parsing without running: what is reported, and what it leaves behind.

#include "../EngineFixture.h"

#include <sstream>

namespace {

class CheckMacro : public EngineTest {
protected:
    // The result, and the line if it was told.
    std::string check(const std::string& path) {
        int line = -7;
        const int result = macro.CheckMacroFile(path.c_str(), &line);
        return std::to_string(result) + (line == -7 ? "" : " " + std::to_string(line));
    }
    std::string checkText(std::string_view text) { return check(folder.Write("a.mcr", text)); }

    // `code line:column text [source line]`, and the line as it is counted if that is another one.
    std::string problemOf(std::string_view text) {
        const MacroReport report = macro.InspectMacroText(SYS_String(text), "a.mcr");
        if (report.parses)
            return "";
        const MacroProblem& problem = report.problem;
        std::ostringstream out;
        out << problem.code << ' ' << problem.textLine << ':' << problem.column << ' '
            << problem.text.c_str() << " [" << problem.sourceLine.c_str() << ']';
        if (problem.line != problem.textLine)
            out << " counted " << problem.line;
        return out.str();
    }

    const TestFolder folder;
};

TEST_F(CheckMacro, TellsTheLineOfTheFirstError) {
    const struct {
        const char* text;
        const char* result;
        int code;
        const char* error;
    } cases[] = {
        {"x = 1\ny = 2\n", "1", 1, ""},
        {"", "1", 1, ""},
        {"unknown 1\nx = 1 / 0\n", "1", 1, ""}, // nothing runs
        {"x = 1\nx = = 2\n", "0 1", 24, "Syntax error: "},
        {"rem a\nx = = 2\n", "0 2", 24, "Syntax error: "},
        {"a = 1\nFor i = 1 To 2\n b = 1\n", "0 1", 39, "Error: FOR statement without NEXT: "},
        {"If a Then\n", "0 1", 24, "Syntax error: "},
        {"Sub f\nEnd Sub\nSub f\nEnd Sub\n", "0 2", 25, "Error: Identifier is already in use: "},
        {"x = 1\nOption Explicit\n", "0 1", 0, "Expected statement"},
        {"\xEF\xBB\xBFx = 1\n", "1", 1, ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(checkText(c.text), c.result) << c.text;
        EXPECT_EQ(processor().GetLastErrorCode(), c.code) << c.text;
        EXPECT_EQ(processor().GetLastErrorText(), c.error) << c.text;
    }
    EXPECT_EQ(macro.CheckMacroFile(folder.Write("b.mcr", "x = = 1").c_str(), nullptr), 0);
}

TEST_F(CheckMacro, AnswersForWhatIsNoMacroFile) {
    EXPECT_EQ(checkText("x = = 1"), "0 0");
    EXPECT_EQ(check((folder.GetPath() / "none.mcr").string()), "0");
    EXPECT_EQ(processor().GetLastErrorCode(), 1) << "the error before is forgotten";
    EXPECT_EQ(check(""), "0");
    EXPECT_EQ(check(folder.GetPath().string()), "0 0");
    EXPECT_EQ(processor().GetLastErrorCode(), 36);
    EXPECT_EQ(check(folder.Write("binary.mcr", std::string("\x7F"
                                                           "ELF\0x",
                                                           6))),
              "0 0");
    EXPECT_EQ(check(folder.Write("nul.mcr", std::string("x = 1\0 = = ", 11))), "1");
}

TEST_F(CheckMacro, LeavesTheEngineAsNew) {
    runText("kept = 1\nSub old\nEnd Sub\n");
    EXPECT_EQ(checkText("Dim a\nSub f\nEnd Sub\nOpen \"x\" For Output As 1\n"), "1");
    EXPECT_EQ(processor().GetSource(), nullptr);
    EXPECT_EQ(macro.GetFunctionNames()[0], "");
    EXPECT_EQ(processor().LookupVar("kept"), nullptr);
    EXPECT_EQ(macro.GetFramesCount(), 1);
    EXPECT_EQ(macro.GetSource(0), nullptr);
    // Names that were declared before do not count.
    EXPECT_EQ(checkText("Dim a\nSub f\nEnd Sub\n"), "1");
    EXPECT_EQ(checkText("For i = 1 To 2\n"), "0 0");
    EXPECT_EQ(runText("Log.Add 1\nFor i = 1 To 2\n"), Lines()) << "an open block ends the parse";
    EXPECT_EQ(runText("Sub f\nEnd Sub\nLog.Add 2"), Lines{"2"});
}

TEST_F(CheckMacro, IsRefusedWhileAMacroRuns) {
    const std::string file = folder.Write("a.mcr", "x = 1");
    const Lines refused(3, "Error: Illegal nesting: ");
    Lines errors;
    log.On("Check", [&] {
        errors.push_back(errorOf([&] { macro.CheckMacroFile(file.c_str(), nullptr); }));
        errors.push_back(errorOf([&] { macro.InspectMacroFile(file.c_str()); }));
        errors.push_back(errorOf([&] { macro.InspectMacroText("x = 1", ""); }));
        UI_Macro other(true);
        EXPECT_EQ(other.CheckMacroFile(file.c_str(), nullptr), 1);
    });
    EXPECT_EQ(runText("Log.Check\nLog.Add \"on\""), Lines{"on"});
    EXPECT_EQ(errors, refused);
}

TEST_F(CheckMacro, ShowsWhereTheParserGaveUp) {
    const struct {
        const char* text;
        const char* problem;
    } cases[] = {
        {"x = 1", ""},
        {"x = 1\n  x = = 2\r\ny = 3", "24 1:6 Syntax error:  [  x = = 2]"},
        {"rem a\nx = 1 : rem b\n\tx = )", "24 2:5 Syntax error:  [\tx = )] counted 4"},
        {"s = \"rem \"\nx = = 1", "24 1:4 Syntax error:  [x = = 1]"},
        {"x = \"abc\n", "24 0:4 Syntax error:  [x = \"abc]"},
        {"While a\n\n", "24 2:0 Syntax error:  []"},
        {"Dim a\nDim b, A", "25 1:8 Error: Identifier is already in use:  [Dim b, A]"},
        {"a = 1 : For i = 1 To 2\n b = 1\n",
         "39 0:8 Error: FOR statement without NEXT:  [a = 1 : For i = 1 To 2]"},
        {"rem\n\n  For Each e In o",
         "39 2:2 Error: FOR statement without NEXT:  [  For Each e In o]"
         " counted 3"},
        {"x = 1\n. y", "24 1:0 Syntax error:  [. y]"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(problemOf(c.text), c.problem) << c.text;
}

// `line-end access kind name(arguments) description` for each, then the names.
std::string outlineOf(const MacroReport& report) {
    constexpr const char* access[] = {"", "Public ", "Public Default ", "Private "};
    constexpr const char* kinds[] = {"Dim ", "Array ", "Const "};
    std::ostringstream out;
    for (const MacroProcedureInfo& procedure : report.procedures) {
        out << procedure.line << '-' << procedure.endLine << ' '
            << access[static_cast<int>(procedure.access)]
            << (procedure.isFunction ? "Function " : "Sub ") << procedure.name.c_str() << '(';
        for (const MacroArgumentInfo& argument : procedure.arguments)
            out << (&argument == &procedure.arguments.front() ? "" : ",")
                << (argument.byValue ? "ByVal " : "") << argument.name.c_str()
                << (argument.isArray ? "()" : "");
        out << ')' << (procedure.description.IsEmpty() ? "" : " ") << procedure.description.c_str()
            << '\n';
    }
    for (const MacroNameInfo& name : report.names)
        out << name.line << ' ' << access[static_cast<int>(name.access)] << kinds[name.kind]
            << name.name.c_str() << '\n';
    return out.str();
}

TEST_F(CheckMacro, ListsWhatAMacroDeclares) {
    const MacroReport report = macro.InspectMacroText("Option Explicit\n"
                                                      "rem counts twice\n"
                                                      "Dim total, list(1 To 3), loose()\n"
                                                      "\n"
                                                      "'  Tells the area.\n"
                                                      "Public Function Area(ByVal w, h, c())\n"
                                                      "  Dim inner : Const two = 2\n"
                                                      "  ReDim other(3)\n"
                                                      "End Function : Private Const a = 1, b = 2\n"
                                                      "Public Default Sub Main : End Sub\n"
                                                      "ReDim LIST(2), fresh(4)\n"
                                                      "If total Then\n"
                                                      "  Private Sub Late\n"
                                                      "  End Sub\n"
                                                      "End If\n",
                                                      "");
    EXPECT_TRUE(report.parses) << report.problem.text.c_str();
    EXPECT_EQ(outlineOf(report), "5-8 Public Function Area(ByVal w,h,c()) Tells the area.\n"
                                 "9-9 Public Default Sub Main()\n"
                                 "12-13 Private Sub Late()\n"
                                 "2 Dim total\n"
                                 "2 Array list\n"
                                 "2 Array loose\n"
                                 "8 Private Const a\n"
                                 "8 Private Const b\n"
                                 "10 Array fresh\n");
}

TEST_F(CheckMacro, ListsWhatStandsBeforeAnError) {
    EXPECT_EQ(outlineOf(macro.InspectMacroText("Dim a\nSub f\nEnd Sub\nFunction g(x)\n Dim y\n"
                                               " y = = 1\nEnd Function\nDim b\n",
                                               "")),
              "1-2 Sub f()\n3--1 Function g(x)\n0 Dim a\n");
    EXPECT_EQ(outlineOf(macro.InspectMacroText("For i = 1 To 2\nSub f\nEnd Sub\n", "")),
              "1-2 Sub f()\n");
}

TEST_F(CheckMacro, InspectsFilesAndTellsWhichItCannotRead) {
    const std::string file = folder.Write("a.mcr", "\xEF\xBB\xBFSub f\nEnd Sub\nx = = 1");
    const MacroReport report = macro.InspectMacroFile(file.c_str());
    EXPECT_EQ(outlineOf(report), "0-1 Sub f()\n");
    EXPECT_EQ(report.problem.textLine, 2);
    for (const std::string& path :
         {(folder.GetPath() / "none.mcr").string(), folder.GetPath().string()}) {
        const MacroReport missing = macro.InspectMacroFile(path.c_str());
        EXPECT_FALSE(missing.parses);
        EXPECT_EQ(missing.problem.code, 36);
        EXPECT_EQ(missing.problem.text.View(), "Error: Can not open file: " + path);
        EXPECT_EQ(missing.problem.textLine, -1);
    }
}

} // namespace
