// The file statements: the exact bytes they write and read, who may open what, and what happens
// when the system fails.

#include "macroengine/runtime/MacroRun.h"
#include "runtime/FileTable.h"
#include "system/platform/TestPlatform.h"

#include <gtest/gtest.h>

namespace {

class Files : public testing::Test {
protected:
    std::string printed(const std::string& statements) {
        EXPECT_EQ(run.Run("Open \"@out\" For Output As #1\n" + statements + "\n"), 0)
            << statements << "\n"
            << run.GetError();
        return run.Bytes("out");
    }
    /// All fields of a file, each behind a bar.
    std::string fields(const std::string& content) {
        run.Folder().Write("in", SYS_String(content.data(), content.size()));
        EXPECT_EQ(run.Run("Open \"@in\" For Input As #1\nDo Until EOF(1)\nInput #1, x\n"
                          "all = all & \"|\" & x\nLoop\n"),
                  0)
            << content << run.GetError();
        return run.Value("all");
    }

    MacroRun run;
};

TEST_F(Files, PrintWritesTheseBytes) {
    const struct {
        const char* statements;
        const char* bytes;
    } cases[] = {
        {"Print #1,", "\r\n"},
        {"Print #1, \"a\"; \"b\"", "ab\r\n"},
        {"Print #1, \"a\" \"b\"", "a\r\nb\r\n"},
        {"Print #1, \"a\";\nPrint #1, \"b\"", "ab\r\n"},
        {"Print #1, ;", ""},
        {"Print #1, \"\"", "\r\n"},
        {"Print #1, \"a\" & vbLf & \"b\" & vbCr", "a\r\nb\r\r\n"},
        {"Print #1, 7 2.5 True 1 > 2", "7\r\n2.5\r\nTrue\r\nFalse\r\n"},
        {"Print #1, 4294967295; 0.1 + 0.2; 1234567.0; 1e300 * 1e300", "-10.31.23457e+06inf\r\n"},
        {"Print #1, Empty", "\r\n\r\n"},
        {"Print #1, Null", ""},
        {"Print #1, \"a\" Null \"b\"", "a\r\nb\r\n"},
        {"Dim a(2)\nPrint #1, a; \"x\"; WScript; \"y\"", "xy\r\n"},
        {"Print #1, \"a\" Nothing", "a\r\n\r\n"},
        {"Sub s\nEnd Sub\nSet r = GetRef(\"s\")\nPrint #1, \"a\" r \"b\"", "a\r\nb\r\n"},
        // Columns.
        {"Print #1, Tab(5); 42", "    42\r\n"},
        {"Print #1, \"abc\"; Tab(2); \"x\"", "abc\r\n x\r\n"},
        {"Print #1, \"ab\"; Tab(3); \"x\"", "abx\r\n"},
        {"Print #1, \"abc\"; Tab(0); \"x\"", "abc\r\nx\r\n"},
        {"Print #1, Tab(-7); \"x\"", "\r\nx\r\n"},
        {"Print #1, 1; Tab; 2 Tab 3", "1\t2\t3\r\n"},
        {"Print #1, 1; Spc(3); 2; Spc; 3; Spc(0); 4; Spc(-1); 5", "1   2 345\r\n"},
        {"Print #1, \"x\" Spc(2)", "x  "},
        // A width.
        {"Width #1, 3\nPrint #1, \"abcdefg\"", "abc\r\ndef\r\ng\r\n"},
        {"Width #1, 3\nPrint #1, \"abc\"", "abc\r\n"},
        {"Width #1, 3\nPrint #1, \"ab\";\nPrint #1, \"cd\"", "abc\r\nd\r\n"},
        {"Width #1, 5\nPrint #1, Tab(7); \"x\"; Tab(10); \"y\"", " x\r\ny\r\n"},
        {"Width #1, -3\nPrint #1, \"abcd\"", "abcd\r\n"},
        {"Width #1, 1\nPrint #1, \"ab\" \"c\"", "a\r\nb\r\nc\r\n"},
    };
    for (const auto& row : cases)
        EXPECT_EQ(printed(row.statements), row.bytes) << row.statements;
}

TEST_F(Files, BlanksBeyondTheLimitAreRefused) {
    for (const char* item : {"Spc(2147483647)", "Tab(2147483647)", "Spc(1073741824)"})
        EXPECT_EQ(run.Run(std::string("Open \"@out\" For Output As #1\nPrint #1, \"a\"; ") + item),
                  20)
            << item;
    EXPECT_EQ(run.Run("Open \"@out\" For Output As #2 Len = 2147483647"), 20);
    // What stood before is not lost.
    run.Macro().Stop();
    EXPECT_EQ(run.Bytes("out"), "a");
}

TEST_F(Files, InputReadsTheseFields) {
    const struct {
        const char* content;
        const char* fields;
    } cases[] = {
        {"a", "|a"},
        {"1,2", "|1,2"},
        {"a b\tc", "|a|b|c"},
        {"a\r\nb\n", "|a|b"},
        {"\n\n", "||"},
        {"a  b", "|a||b"},
        {"\"a b\"", "|a b"},
        {"\"a b\"\r\nc", "|a b||c"},
        {"x\"a b\"y", "|xa b|y"},
        {"\"a\nb\"", "|a|b"},
        {"\"\"", "|"},
        {"a\rb", "|ab"},
        {"\r", "|"},
        {"\"open end", "|open end"},
    };
    for (const auto& row : cases)
        EXPECT_EQ(fields(row.content), row.fields) << row.content;
    const std::string part(998, 'x');
    EXPECT_EQ(fields(part + part + "yz"), "|" + part + "|" + part + "|yz");
    // A field that the buffer of reads cuts in two.
    const std::string blanks(65533, '\n');
    EXPECT_EQ(fields(blanks + "abcdef"), std::string(65533, '|') + "|abcdef");
}

TEST_F(Files, InputFillsAnythingThatCanBeAssigned) {
    run.Folder().Write("in", "1 2 3 4");
    EXPECT_EQ(run.Run("Dim a(3)\nConst c = 9\nSub fetch(x)\nInput #1, x\nEnd Sub\n"
                      "Open \"@in\" For Input As #1\nInput #1, v, a(2), c\nfetch w\n"
                      "all = v & a(2) & c & w & TypeName(v)\n"),
              0)
        << run.GetError();
    EXPECT_EQ(run.Value("all"), "1294String");
    EXPECT_EQ(run.Run("Open \"@in\" For Input As #1\nInput #1, a, b, c, d, e"), 36);
    EXPECT_EQ(run.Value("d"), "4");
}

TEST_F(Files, EachModeAllowsItsOwn) {
    const struct {
        const char* clause;
        int print;
        int input;
    } cases[] = {
        {"Output", 0, 37},
        {"Append", 0, 37},
        {"Input", 37, 0},
        {"Binary", 0, 0},
        {"Random", 37, 37},
        {"Output Access Read", 37, 37},
        {"Output Access Read Write", 0, 37},
        {"Input Access Write", 37, 37},
        {"Binary Access Read", 37, 0},
        {"Binary Access Write", 0, 37},
    };
    for (const auto& row : cases) {
        run.Folder().Write("f", "12 34");
        const std::string open = std::string("Open \"@f\" For ") + row.clause + " As #1\n";
        EXPECT_EQ(run.Run(open + "Print #1, \"x\";"), row.print) << row.clause;
        run.Macro().Stop();
        run.Folder().Write("f", "12 34");
        EXPECT_EQ(run.Run(open + "Input #1, x"), row.input) << row.clause;
        run.Macro().Stop();
    }
}

TEST_F(Files, OpenKeepsOrEmptiesAndMakesFiles) {
    EXPECT_EQ(run.Run("Open \"@a\" For Output As 1\nPrint #1, \"one\"\nClose 1\n"
                      "Open \"@a\" For Append As 1\nPrint #1, \"two\"\n"
                      "Open \"@a\" For Append As 1\nPrint #1, \"three\"\n" // closes the first
                      "Open \"@b\" For Input As 2\nemptyFile = EOF(2)\n"),
              0);
    EXPECT_EQ(run.Bytes("a"), "one\r\ntwo\r\nthree\r\n");
    EXPECT_EQ(run.Bytes("b"), "");
    EXPECT_EQ(run.Value("emptyFile"), "True");
    EXPECT_EQ(run.Run("Open \"@a\" For Output As 1"), 0);
    EXPECT_EQ(run.Bytes("a"), "");
    GetPlatform().MakeDirectory(run.Folder().Path("folder"));
    EXPECT_EQ(run.Run("Open \"@sub\\missing\" For Output As 1"), 36);
    EXPECT_EQ(run.Run("Open \"@folder\" For Input As 1"), 36);
    EXPECT_EQ(run.Run("Open \"X:\\a\" For Output As 1"), 36);
    EXPECT_EQ(run.Run("Open \"\" For Output As 1"), 36);
    EXPECT_EQ(run.Run("Open \"@folder\\new\" For Output As 1\nPrint #1, \"%s%n\""), 0);
    EXPECT_EQ(run.Bytes("folder/new"), "%s%n\r\n");
}

TEST_F(Files, ClosedNumbersDoNothing) {
    EXPECT_EQ(run.Run("Print #1, \"x\"\nInput #1, x\nWidth #1, 5\nClose #1, 2\nClose\n"
                      "a = EOF(1)\nOpen \"@f\" For Output As #7\nb = EOF(7)\n"
                      "Close #7\nc = EOF(7)\nPrint #7, \"x\"\n"),
              0)
        << run.GetError();
    EXPECT_EQ(run.Value("a") + run.Value("b") + run.Value("c"), "FalseTrueFalse");
    EXPECT_EQ(run.Bytes("f"), "");
}

TEST_F(Files, LocksKeepOtherStreamsOut) {
    const struct {
        const char* first;
        const char* second;
        int error;
    } cases[] = {
        {"Input", "Output", 0},
        {"Input Lock Read", "Input", 36},
        {"Input Lock Read", "Append", 0},
        {"Input Lock Write", "Input", 0},
        {"Input Lock Write", "Append", 36},
        {"Input Lock Write", "Output", 36},
        {"Output Lock Read Write", "Input", 36},
        {"Output Shared", "Input Lock Write", 36}, // the first one writes already
        {"Binary Lock Read", "Random", 36},
    };
    for (const auto& row : cases) {
        run.Folder().Write("f", "text");
        EXPECT_EQ(run.Run(std::string("Open \"@f\" For ") + row.first + " As #1\nOpen \"@f\" For " +
                          row.second + " As #2"),
                  row.error)
            << row.first << " / " << row.second;
        run.Macro().Stop();
    }
}

TEST_F(Files, ReadingAheadCannotBeSeen) {
    run.Folder().Write("f", "ab cd ef gh");
    EXPECT_EQ(run.Run("Open \"@f\" For Binary As #1\nInput #1, a\nPrint #1, \"XY\";\n"
                      "Input #1, b, c\n"),
              0);
    EXPECT_EQ(run.Bytes("f"), "ab XY ef gh");
    EXPECT_EQ(run.Value("a") + "|" + run.Value("b") + "|" + run.Value("c"), "ab||ef");

    run.Folder().Write("g", "ab cd ef");
    EXPECT_EQ(run.Run("Open \"@g\" For Input As #1\nInput #1, a\n"
                      "Open \"@g\" For Binary As #2\nPrint #2, \"AB CD\";\nInput #1, b\n"
                      "Open \"@g\" For Append As #3\nPrint #3, \" gh\";\nClose #3\n"
                      "Input #1, c, d\nOpen \"@g\" For Output As #3\ne = EOF(1)\n"),
              0);
    EXPECT_EQ(run.Value("a") + run.Value("b") + run.Value("c") + run.Value("d") + run.Value("e"),
              "abCDefghTrue");
}

TEST_F(Files, RecordsAreHeldBackUntilTheyAreFull) {
    TextFile file;
    const auto open = [&](ParserTree::FileOpenMode mode) {
        return file.Open(run.Folder().Path("f"), mode, ParserTree::AccessReadWrite,
                         ParserTree::LockShared, 4);
    };
    ASSERT_TRUE(open(ParserTree::FileOutput));
    file.Put("ab\n");
    file.EndPrint();
    EXPECT_EQ(run.Bytes("f"), "");
    file.Put("cdefghi");
    file.EndPrint();
    EXPECT_EQ(run.Bytes("f"), "ab\r\ncdefg");
    EXPECT_EQ(file.GetColumn(), 5);
    file.Close();
    EXPECT_EQ(run.Bytes("f"), "ab\r\ncdefghi");
    ASSERT_TRUE(open(ParserTree::FileRandom));
    file.Put("XY");
    file.EndPrint();
    EXPECT_EQ(run.Bytes("f"), "XY\r\ncdefghi");
}

TEST_F(Files, AreClosedWhenTheRunIsOver) {
    const auto isOpen = [&] { return run.Engine().GetFile(1).IsOpen(); };
    const std::string open = "Open \"@f\" For Output As #1 Len = 100\nPrint #1, \"held\"\n";
    EXPECT_EQ(run.Run(open), 0);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(run.Bytes("f"), "held\r\n");

    // An error leaves them to the host, until it stops or resets the engine.
    EXPECT_EQ(run.Run(open + "x = 1 + Null"), 14);
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(run.Bytes("f"), "");
    run.Macro().Stop();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(run.Bytes("f"), "held\r\n");

    run.Folder().Write("call.mcr", run.InFolder("Sub s\n" + open + "End Sub\n").c_str());
    run.Macro().ExecuteMacro(run.Folder().Path("call.mcr"), "s", nullptr, 0);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(run.Bytes("f"), "held\r\n");
}

TEST_F(Files, AStatementWritesOnceAndAFullDiskIsNoError) {
    TestPlatform platform;
    platform.writes.left = 2;
    EXPECT_EQ(run.Run("Open \"@f\" For Output As #1\nPrint #1, 1; Tab(9); \"b\"; Spc(3) \"c\" 4\n"
                      "Print #1, \"second\"; \"part\"\nPrint #1, \"lost\"\nClose\nok = 1\n"),
              0)
        << run.GetError();
    EXPECT_EQ(run.Bytes("f"), "1       b   c\r\n4\r\nsecondpart\r\n");
    EXPECT_EQ(run.Value("ok"), "1");
}

TEST_F(Files, AFailingReadIsAnErrorButNoEnd) {
    run.Folder().Write("f", "a b");
    MacroSupport& engine = run.Engine();
    TestPlatform platform;
    engine.OnOpen(run.Folder().Path("f"), ParserTree::FileInput, 1, ParserTree::AccessReadWrite,
                  ParserTree::LockShared, 0);
    platform.reads.left = 0;
    EXPECT_FALSE(engine.GetFile(1).IsAtEnd());
    UI_MacroVariant field = "untouched";
    EXPECT_THROW(engine.OnInput(&field, 1, 1), MacroException);
    EXPECT_EQ(engine.GetLastErrorCode(), 36);
    EXPECT_EQ(static_cast<SYS_String>(field), "untouched");
    platform.reads.left = -1;
    engine.OnInput(&field, 1, 1);
    EXPECT_EQ(static_cast<SYS_String>(field), "a");
    engine.CloseAllFiles();
}

// Every operation on a file fails in turn, for once or for good. What is written stays in order,
// and nothing but the text of the statement that could not be written is missing.
TEST_F(Files, AnySingleFailureLosesItsOwnStatementAtMost) {
    const std::string macro = "Open \"@in\" For Input As #1\n"
                              "Open \"@log\" For Append As #2\n"
                              "Open \"@held\" For Output As #3 Len = 4\n"
                              "Open \"@both\" For Binary As #4\n"
                              "Do Until EOF(1)\n"
                              "Input #1, x\nPrint #2, \"read\"; x\nPrint #3, x;\n"
                              "Input #4, y\nPrint #4, \"Z\";\n"
                              "Loop\n"
                              "Close\nMkDir \"@made\"\nMoveFile \"@in\", \"@made/in\"\n"
                              "t = GetTmpFileName(\"@made\") & Dir(\"@made/*\", 16)\n";
    const std::string log = "readone\r\nreadtwo\r\nreadthree\r\n";
    const auto isSubsequence = [](const std::string& part, const std::string& whole) {
        std::size_t at = 0;
        for (const char c : whole)
            at += at < part.size() && part[at] == c;
        return at == part.size();
    };
    int failures = 0;
    for (const bool once : {true, false}) {
        for (int n = 0;; ++n) {
            SCOPED_TRACE((once ? "once, after " : "from then on, after ") + std::to_string(n));
            for (const char* name : {"log", "held"})
                run.Folder().Write(name, "");
            run.Folder().Write("in", "one two three");
            run.Folder().Write("both", "1 2 3 4 5 6 7 8");
            bool struck = false;
            int error = 0;
            {
                TestPlatform platform;
                platform.any = {n, once};
                error = run.Run(macro);
                struck = once ? platform.any.left < 0 : platform.any.left == 0;
                run.Macro().Stop();
            }
            if (!struck)
                break;
            ++failures;
            EXPECT_TRUE(error == 0 || error == 36) << run.GetError();
            const std::string written = run.Bytes("log");
            const std::string held = run.Bytes("held");
            const std::string both = run.Bytes("both");
            EXPECT_TRUE(isSubsequence(written, log)) << written;
            EXPECT_TRUE(isSubsequence(held, "onetwothree")) << held;
            for (std::size_t i = 0; i < both.size(); ++i)
                EXPECT_EQ(both[i] == ' ', i % 2 == 1) << both;
            EXPECT_EQ(both.size(), 15u);
            if (error == 0 && once) {
                EXPECT_GE(written.size() + std::string("readthree\r\n").size(), log.size());
                EXPECT_GE(held.size() + 4, std::string("onetwothree").size());
            }
        }
    }
    EXPECT_GT(failures, 60);
}

TEST_F(Files, AnItemThatFailsLosesNothingBeforeIt) {
    EXPECT_EQ(
        run.Run("Dim a(2)\nOpen \"@f\" For Output As #1\nPrint #1, \"before\"; Spc(a); \"x\""), 23);
    EXPECT_EQ(run.Bytes("f"), "before");
}

} // namespace
