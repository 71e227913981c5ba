// The commands of mcr that look at macros without running them.

#include "RunProgram.h"
#include "TestPaths.h"
#include "macroengine/EngineFixture.h"

#include <nlohmann/json.hpp>

namespace {

namespace fs = std::filesystem;

class EditorCommands : public testing::Test {
protected:
    ProgramResult mcr(std::vector<std::string> arguments, const std::string& text = "") {
        arguments.insert(arguments.begin(), TEST_BINARY_DIR "/mcr");
        ProgramInput input;
        input.text = text;
        return RunProgram(arguments, input);
    }

    const TestFolder folder;
};

// --- check ------------------------------------------------------------------------------------

TEST_F(EditorCommands, CheckGivesEachFaultyFileOneLine) {
    const std::string bad = folder.Write("bad.mcr", "x = 1\n  x = = 2\r\n");
    const std::string good = folder.Write("good.mcr", "Console.WriteLine 1\n");
    const std::string open = folder.Write("open.mcr", "a = 1\nFor i = 1 To 2\n x = i\n");
    const std::string twice = folder.Write("twice.mcr", "Dim a\nDim a\n");
    const std::string empty = folder.Write("empty.mcr", "");
    const std::string end = folder.Write("end.mcr", "Sub f\n");
    const ProgramResult result = mcr({"check", bad, good, open, twice, empty, end});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, bad + ":2: Syntax error: x = = 2\n" + //
                              open + ":2: Error: FOR statement without NEXT: For i = 1 To 2\n" +
                              twice + ":2: Error: Identifier is already in use: Dim a\n" + //
                              end + ":2: Syntax error\n" +                                 //
                              "6 files, 4 errors\n");

    const ProgramResult clean = mcr({"check", good, empty});
    EXPECT_EQ(clean.status, 0);
    EXPECT_EQ(clean.err, "2 files, 0 errors\n");
    EXPECT_EQ(mcr({"check", good}).err, "");
}

TEST_F(EditorCommands, CheckGoesOnBehindFilesItCannotRead) {
    const std::string none = (folder.GetPath() / "none.mcr").string();
    const std::string path = folder.GetPath().string();
    const std::string bad = folder.Write("bad.mcr", "x = = 2");
    const ProgramResult result = mcr({"check", none, path, bad, "-"}, "\xEF\xBB\xBFx = 1");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "mcr: " + none + ": No such file or directory\n" + "mcr: " + path +
                              ": Is a directory\n" + bad +
                              ":1: Syntax error: x = = 2\n4 files, 1 error, 2 not readable\n");
}

// The engine says nothing of it, so somebody must.
TEST_F(EditorCommands, CheckAndOutlineWarnOfAStringThatEndsTheMacro) {
    const std::string text = "rem\nx = \"a\"\nf \"b\n y = = 2\nSub f\nEnd Sub\n";
    const std::string early = folder.Write("a.mcr", text);
    const std::string warning =
        ":4: warning: A string has no closing quote; nothing behind it is read: f \"b\n";
    const ProgramResult result = mcr({"check", early, early});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, early + warning + early + warning + "2 files, 0 errors\n");
    const ProgramResult outline = mcr({"outline", "--json", early});
    EXPECT_EQ(outline.status, 0);
    EXPECT_EQ(outline.err, early + warning);
    const auto page = nlohmann::json::parse(outline.out);
    EXPECT_EQ(page["endsEarly"], true);
    EXPECT_EQ(page["problem"]["line"], 3);
    EXPECT_EQ(page["problem"]["column"], 3);
    EXPECT_EQ(page["procedures"].size(), 0u);
}

TEST_F(EditorCommands, CheckKeepsMessagesShortAndPlain) {
    const std::string endless = folder.Write("a.mcr", "x = = \"" + std::string(5000000, 'a'));
    const ProgramResult result = mcr({"check", endless});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, endless + ":1: Syntax error: x = = \"" + std::string(153, 'a') + "...\n");
    const std::string accents =
        folder.Write("b.mcr", "x = = 'z" + std::string(150, 'z') + "\xC3\xA9\xC3\xA9\x1B[2J");
    EXPECT_TRUE(mcr({"check", accents}).err.ends_with("z\xC3\xA9...\n"))
        << mcr({"check", accents}).err;
    const std::string escape = folder.Write("c.mcr", "x = = \x1B[2J\a");
    EXPECT_EQ(mcr({"check", escape}).err, escape + ":1: Syntax error: x = =  [2J \n");
    const std::string wide = folder.Write("e.mcr", "x = = \xC2\x9Bm \xC3\x9B");
    EXPECT_EQ(mcr({"check", wide}).err, wide + ":1: Syntax error: x = =  m \xC3\x9B\n");
    const std::string binary = folder.Write("d.mcr", std::string("\x7F"
                                                                 "ELF\0\0",
                                                                 6));
    EXPECT_EQ(mcr({"check", binary}).status, 1);
}

TEST_F(EditorCommands, CheckIsFastOnManyFiles) {
    std::string text;
    for (int i = 0; i < 50; ++i)
        text += "' A part.\nSub part" + std::to_string(i) + "(a)\n b = a + 1\nEnd Sub\n";
    std::vector<std::string> command = {"check"};
    for (int i = 0; i < 1000; ++i)
        command.push_back(folder.Write(std::to_string(i) + ".mcr", text));
    const ProgramResult result = mcr(command);
    EXPECT_EQ(result.err, "1000 files, 0 errors\n");
    EXPECT_EQ(result.status, 0);
    // A second is what is promised for an ordinary build on a quiet machine.
    EXPECT_LT(result.duration.count(), 10000);
}

// --- tokens and highlight ---------------------------------------------------------------------

TEST_F(EditorCommands, TokensShowsPiecesWithTheirPlaces) {
    const ProgramResult result =
        mcr({"tokens", "-"}, "x\t= \"\xC3\xA9\n\r\nIf a\\2 ' \xE9\n\x01\xC3\xA9");
    EXPECT_EQ(result.out, "1:1\t6\tname\tx\n"
                          "1:2\t9\ttabs\t\\t\n"
                          "1:3\t5\tkeyword\t=\n"
                          "1:4\t10\tblanks\t \n"
                          "1:5\t1\tstring\t\"\xC3\xA9\"\n"
                          "3:1\t5\tkeyword\tIf\n"
                          "3:3\t10\tblanks\t \n"
                          "3:4\t6\tname\ta\n"
                          "3:5\t4\tcharacter\t\\\\\n"
                          "3:6\t3\tinteger\t2\n"
                          "3:7\t10\tblanks\t \n"
                          "3:8\t7\tcomment-start\t'\n"
                          "3:9\t10\tblanks\t \n"
                          "3:10\t6\tname\t\\xe9\n"
                          "3:11\t8\tcomment-end\t\n"
                          "4:1\t4\tcharacter\t\\x01\n"
                          "4:2\t4\tcharacter\t\\xc3\n"
                          "4:3\t4\tcharacter\t\\xa9\n");
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(mcr({"tokens", "-"}).out, "");
}

TEST_F(EditorCommands, HighlightColorsTheTour) {
    const std::string golden = TEST_PROJECT_DIR "/tests/hosts/mcr/golden/";
    ProgramInput input;
    input.folder = TEST_PROJECT_DIR "/examples";
    EXPECT_EQ(RunProgram({TEST_BINARY_DIR "/mcr", "highlight", "tour.mcr"}, input).out,
              ReadWholeFile(golden + "tour.ansi"));
    EXPECT_EQ(RunProgram({TEST_BINARY_DIR "/mcr", "highlight", "--html", "tour.mcr"}, input).out,
              ReadWholeFile(golden + "tour.html"));
}

std::string withoutColors(const std::string& text) {
    std::string plain;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '\x1B')
            at = text.find('m', at);
        else
            plain += text[at];
    }
    return plain;
}

TEST_F(EditorCommands, HighlightKeepsTheTextAndTamesTheRest) {
    const std::string text = "x = \"\xC3\xA9 <b>&\"\t' c\r\n\r\n\xC3\xA9 = 1 \x1B[2J \x7F\rz";
    EXPECT_EQ(withoutColors(mcr({"highlight", "-"}, text).out),
              "x = \"\xC3\xA9 <b>&\"\t' c\n\n\xC3\xA9 = 1 ^[[2J ^?^Mz\n");
    const std::string page = mcr({"highlight", "--html", "-"}, text + "\xFF").out;
    EXPECT_NE(page.find("<span class=\"string\">\"\xC3\xA9 &lt;b&gt;&amp;\"</span>\t"
                        "<span class=\"comment\">' c</span></span>\n"
                        "<span class=\"line\"></span>\n"
                        "<span class=\"line\"><span class=\"character\">\xC3\xA9</span> "),
              std::string::npos)
        << page;
    EXPECT_NE(page.find("\xEF\xBF\xBD"), std::string::npos);
    EXPECT_EQ(page.find('\xFF'), std::string::npos);
    EXPECT_EQ(page.find('\x1B'), std::string::npos);
    EXPECT_EQ(mcr({"highlight", "-"}, "").out, "");
}

TEST_F(EditorCommands, HighlightLeavesOutColorsThatNobodyWants) {
    setenv("NO_COLOR", "1", 1);
    const std::string plain = mcr({"highlight", "-"}, "If x ' \xC2\x9Bm\n").out;
    setenv("NO_COLOR", "", 1);
    const std::string colored = mcr({"highlight", "-"}, "If x\n").out;
    unsetenv("NO_COLOR");
    EXPECT_EQ(plain, "If x ' \xEF\xBF\xBDm\n");
    EXPECT_EQ(colored, "\x1B[94mIf\x1B[0m x\n");
}

TEST_F(EditorCommands, TextsEndAtANul) {
    const std::string binary = folder.Write("a.mcr", std::string("x = 1\0Q\n", 8));
    for (const char* command : {"highlight", "tokens"}) {
        const ProgramResult result = mcr({command, binary});
        EXPECT_EQ(result.err, "mcr: " + binary + ": The text ends at the NUL byte at offset 5\n");
        EXPECT_EQ(result.out.find('Q'), std::string::npos);
        EXPECT_EQ(result.status, 0);
    }
}

TEST_F(EditorCommands, RefuseWhatTheyCannotRead) {
    const std::string none = (folder.GetPath() / "none.mcr").string();
    for (const char* command : {"tokens", "highlight", "outline"}) {
        for (const std::string& path : {none, folder.GetPath().string()}) {
            const ProgramResult result = mcr({command, path});
            EXPECT_EQ(result.status, 2) << command;
            EXPECT_EQ(result.out, "");
            EXPECT_TRUE(result.err.starts_with("mcr: " + path + ": ")) << result.err;
        }
        EXPECT_EQ(mcr({command}).status, 2);
    }
}

// --- outline ----------------------------------------------------------------------------------

constexpr const char* kOutlined = "rem counts twice\n"
                                  "Dim total, list(3)\n"
                                  "' Tells the \xE9rea.\n"
                                  "' In detail.\n"
                                  "Public Function Area(ByVal w, h())\n"
                                  "End Function\n"
                                  "Private Const limit = 3\n"
                                  "Sub Show\n"
                                  "End Sub\n";

TEST_F(EditorCommands, OutlineListsDeclarationsByTheirLines) {
    const ProgramResult result = mcr({"outline", "-"}, kOutlined);
    EXPECT_EQ(result.out, "2: Dim total\n"
                          "2: Dim list()\n"
                          "5: Public Function Area(ByVal w, h())  ' Tells the \xE9rea.\n"
                          "7: Private Const limit\n"
                          "8: Sub Show()\n");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(mcr({"outline", "-"}, "' a\x1B[2J\xC2\x9Bs\nSub f\nEnd Sub\n").out,
              "2: Sub f()  ' a [2J s\n");
}

TEST_F(EditorCommands, OutlineTellsProgramsAllThereIs) {
    using Json = nlohmann::json;
    const ProgramResult result = mcr({"outline", "--json", "-"}, kOutlined);
    EXPECT_EQ(Json::parse(result.out), Json::parse(R"({
        "file": "-", "parses": true, "endsEarly": false, "problem": null,
        "procedures": [
            {"name": "Area", "kind": "Function", "access": "Public", "line": 5, "endLine": 6,
             "arguments": [{"name": "w", "passing": "ByVal", "isArray": false},
                           {"name": "h", "passing": "ByRef", "isArray": true}],
             "description": "Tells the \ufffdrea.\n In detail."},
            {"name": "Show", "kind": "Sub", "access": "", "line": 8, "endLine": 9,
             "arguments": [], "description": ""}],
        "names": [
            {"name": "total", "kind": "Variable", "access": "", "line": 2},
            {"name": "list", "kind": "Array", "access": "", "line": 2},
            {"name": "limit", "kind": "Constant", "access": "Private", "line": 7}]})"));

    const ProgramResult broken = mcr({"outline", "--json", "-"}, "rem\nSub f\n x = = 1\n");
    EXPECT_EQ(broken.status, 1);
    EXPECT_EQ(broken.err, "-:4: Syntax error: x = = 1\n");
    EXPECT_EQ(Json::parse(broken.out), Json::parse(R"({
        "file": "-", "parses": false, "endsEarly": false,
        "problem": {"code": 24, "text": "Syntax error: ", "line": 3, "column": 6,
                    "countedLine": 4, "sourceLine": " x = = 1"},
        "procedures": [{"name": "f", "kind": "Sub", "access": "", "line": 2, "endLine": null,
                        "arguments": [], "description": "em"}],
        "names": []})"));
}

} // namespace
