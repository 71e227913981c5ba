// The command line of mcr: what it prints where, and its exit codes.

#include "RunProgram.h"
#include "TestPaths.h"

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

class Mcr : public testing::Test {
protected:
    void SetUp() override {
        static std::atomic<int> number = 0;
        m_Folder = fs::temp_directory_path() /
                   ("mcr-test-" + std::to_string(getpid()) + "-" + std::to_string(++number));
        fs::create_directories(m_Folder);
    }
    void TearDown() override { fs::remove_all(m_Folder); }

    std::string write(const std::string& name, const std::string& text) {
        const std::string path = (m_Folder / name).string();
        std::ofstream(path, std::ios::binary) << text;
        return path;
    }

    ProgramResult mcr(std::vector<std::string> arguments, const ProgramInput& input = {}) {
        arguments.insert(arguments.begin(), TEST_BINARY_DIR "/mcr");
        return RunProgram(arguments, input);
    }

    static std::string firstLine(const std::string& text) {
        return text.substr(0, text.find('\n'));
    }

    fs::path m_Folder;
};

constexpr const char* kEndless = "Console.WriteLine \"started\"\nDo\n x = x + 1\nLoop\n";

TEST_F(Mcr, TellsItsVersionAndItsCommands) {
    const ProgramResult version = mcr({"--version"});
    EXPECT_EQ(version.out, "mcr " TEST_VERSION "\n");
    EXPECT_EQ(version.status, 0);

    const ProgramResult help = mcr({"--help"});
    EXPECT_EQ(help.status, 0);
    for (const char* command :
         {"run", "check", "eval", "tree", "tokens", "highlight", "outline", "debug"})
        EXPECT_NE(help.out.find(std::string("\n  ") + command + " "), std::string::npos) << command;
}

TEST_F(Mcr, RefusesWrongUsageWithStatus2) {
    const std::vector<std::string> cases[] = {{},
                                              {"walk"},
                                              {"run"},
                                              {"check"},
                                              {"eval"},
                                              {"tree"},
                                              {"eval", "1", "2"},
                                              {"run", "--timeout", "soon", "x.mcr"},
                                              {"run", "--timeout", "-1", "x.mcr"},
                                              {"run", m_Folder / "none.mcr"},
                                              {"check", m_Folder / "none.mcr"},
                                              {"tree", m_Folder / "none.mcr"},
                                              {"run", m_Folder},
                                              {"debug"},
                                              {"debug", m_Folder / "none.mcr"},
                                              {"debug", m_Folder}};
    for (const auto& arguments : cases) {
        const ProgramResult result = mcr(arguments);
        EXPECT_EQ(result.status, 2) << testing::PrintToString(arguments);
        EXPECT_EQ(result.out, "");
        EXPECT_NE(result.err, "");
    }
}

TEST_F(Mcr, EvaluatesAnExpression) {
    EXPECT_EQ(mcr({"eval", "1 + 2 * 3"}).out, "7\n");
    EXPECT_EQ(mcr({"eval", "-5"}).out, "-5\n");
    EXPECT_EQ(mcr({"eval", "\"a\" & Len(\"four\")"}).out, "a4\n");

    const ProgramResult broken = mcr({"eval", "1 +"});
    EXPECT_EQ(broken.status, 1);
    EXPECT_EQ(broken.out, "");
    EXPECT_TRUE(firstLine(broken.err).starts_with("<expression>:1: Syntax error")) << broken.err;
}

TEST_F(Mcr, RunsStandardInput) {
    ProgramInput input;
    input.text = "Console.WriteLine \"a\", 1, \"b\"\nConsole.Write 2\nx = 1 \\ 0\n";
    const ProgramResult result = mcr({"run", "-"}, input);
    EXPECT_EQ(result.out, "a1b\n2");
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.err.starts_with("-:3: ")) << result.err;
}

TEST_F(Mcr, ReadsLinesForTheMacro) {
    const std::string path = write("read.mcr", "a = Console.ReadLine()\n"
                                               "b = Console.ReadLine()\n"
                                               "c = Console.ReadLine()\n"
                                               "Console.WriteLine \"[\" & a & \"][\" & b & \"]\"\n"
                                               "Console.WriteLine TypeName(c)\n");
    ProgramInput input;
    input.text = "one\r\n two";
    const ProgramResult result = mcr({"run", path}, input);
    EXPECT_EQ(result.out, "[one][ two]\nNull\n");
    EXPECT_EQ(result.err, "");
}

TEST_F(Mcr, ChecksEveryFileAndRunsNone) {
    const std::string good = write("good.mcr", "Console.WriteLine 1\n");
    const std::string bad = write("bad.mcr", "x = 1\nx = = 2\n");
    const std::string open = write("open.mcr", "For i = 1 To 2\n x = i\n");
    const ProgramResult result = mcr({"check", bad, good, open});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_TRUE(result.err.starts_with(bad + ":2: Syntax error")) << result.err;
    EXPECT_NE(result.err.find("\n" + open + ":"), std::string::npos) << result.err;
    EXPECT_EQ(result.err.find(good), std::string::npos) << result.err;
    EXPECT_EQ(mcr({"check", good}).status, 0);
}

TEST_F(Mcr, WritesOutputBeforeTheError) {
    const std::string path = write("both.mcr", "Console.WriteLine \"first\"\nx = nothingHere.y\n");
    // One pipe for both, so that the order shows.
    const ProgramResult result =
        RunProgram({"/bin/sh", "-c", "exec \"$0\" run \"$1\" 2>&1", TEST_BINARY_DIR "/mcr", path});
    EXPECT_TRUE(result.out.starts_with("first\n" + path + ":2: ")) << result.out;
    EXPECT_EQ(result.status, 1);
}

TEST_F(Mcr, EndsARunWhenItsTimeIsOver) {
    const std::string path = write("endless.mcr", kEndless);
    const ProgramResult result = mcr({"run", "--timeout", "0.3", path});
    EXPECT_FALSE(result.timedOut);
    EXPECT_GE(result.duration, milliseconds(250));
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "started\n");
    EXPECT_TRUE(result.err.starts_with(path + ":")) << result.err;
    EXPECT_NE(firstLine(result.err).find(": Time limit reached"), std::string::npos) << result.err;
}

// A pipe without anyone at its other end, which may be met when it is opened, read or written.
TEST_F(Mcr, EndsARunThatWaitsForAFile) {
    const std::string pipe = (m_Folder / "pipe").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const auto at = [&](const std::string& clause) {
        return "Open \"" + pipe + "\" For " + clause;
    };
    const std::string fill = "\nDo\n Print #1, String(5000, \"x\")\nLoop\n";
    const std::string macros[] = {
        at("Input As #1\n"), at("Output As #1\n"), at("Binary As #1\nInput #1, x\n"),
        at("Binary As #1\nDo Until EOF(1)\nLoop\n"), at("Binary As #1") + fill};
    for (const std::string& text : macros) {
        const std::string path = write("waits.mcr", text);
        const ProgramResult late = mcr({"run", "--timeout", "0.2", path});
        EXPECT_FALSE(late.timedOut) << text;
        EXPECT_EQ(late.status, 1);
        EXPECT_NE(firstLine(late.err).find(": Time limit reached"), std::string::npos) << late.err;
    }
    ProgramInput input;
    input.interruptAfter = milliseconds(500);
    const ProgramResult stopped = mcr({"run", write("waits.mcr", macros[2])}, input);
    EXPECT_FALSE(stopped.timedOut);
    EXPECT_TRUE(firstLine(stopped.err).ends_with("waits.mcr:2: Interrupted")) << stopped.err;
}

TEST_F(Mcr, EndsARunOnInterrupt) {
    const std::string path = write("endless.mcr", kEndless);
    ProgramInput input;
    input.interruptAfter = milliseconds(500);
    const ProgramResult result = mcr({"run", path}, input);
    EXPECT_FALSE(result.timedOut);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "started\n");
    EXPECT_NE(firstLine(result.err).find(": Interrupted"), std::string::npos) << result.err;
}

TEST_F(Mcr, ReportsOutputThatCannotBeWritten) {
    const std::string path = write("full.mcr", "Console.WriteLine 1\n");
    const ProgramResult result = RunProgram(
        {"/bin/sh", "-c", "exec \"$0\" run \"$1\" >/dev/full", TEST_BINARY_DIR "/mcr", path});
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.err, "");
}

TEST_F(Mcr, ShowsTheTreeWithoutRunning) {
    const std::string path = write("tree.mcr", "Console.WriteLine \"text\"\n");
    const ProgramResult result = mcr({"tree", path});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_NE(result.out.find("WriteLine"), std::string::npos) << result.out;
    EXPECT_EQ(result.out.find("\ntext\n"), std::string::npos) << result.out;
}

// Procedures with arguments are called with the rest of the command line as strings.
TEST_F(Mcr, CallsOneProcedure) {
    const std::string path = write("call.mcr", "Console.WriteLine \"not run\"\n"
                                               "Function paste(a, b)\n"
                                               " paste = a & \"+\" & b & TypeName(b)\n"
                                               "End Function\n"
                                               "Sub quiet()\nEnd Sub\n");
    const ProgramResult result = mcr({"run", path, "--call", "paste", "1", "--call"});
    EXPECT_EQ(result.out, "1+--callString\n");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(mcr({"run", path, "--call", "quiet"}).out, "");

    const ProgramResult unknown = mcr({"run", path, "--call", "other"});
    EXPECT_EQ(unknown.status, 1);
    EXPECT_NE(unknown.err.find("other"), std::string::npos) << unknown.err;
}

TEST_F(Mcr, ShowsTheOpenFramesOfAnError) {
    const std::string path = write("frames.mcr", "Call outer\n"
                                                 "Sub outer()\n"
                                                 " Call inner\n"
                                                 "End Sub\n"
                                                 "Sub inner()\n"
                                                 " If False Then\n"
                                                 " ElseIf 1 \\ 0 Then\n"
                                                 " End If\n"
                                                 "End Sub\n");
    const ProgramResult result = mcr({"run", path});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.err.starts_with(path + ":7: ")) << result.err;
    EXPECT_NE(result.err.find("\n  at " + path + ":7 in inner\n  at " + path + ":3 in outer\n"),
              std::string::npos)
        << result.err;
}

// --- The debugger, where written sessions do not reach -------------------------------------------

TEST_F(Mcr, PausesADebuggedRunOnInterrupt) {
    const std::string path = write("endless.mcr", kEndless);
    ProgramInput input;
    input.text = "run\nprint x > 0\nquit\n";
    input.interruptAfter = milliseconds(500);
    const ProgramResult result = mcr({"debug", path}, input);
    EXPECT_FALSE(result.timedOut);
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.out.find("started\nInterrupted, module level at " + path + ":"),
              std::string::npos)
        << result.out;
    EXPECT_NE(result.out.find("x > 0 = True\n"), std::string::npos) << result.out;
}

TEST_F(Mcr, EndsAnEndlessEvaluationOnInterrupt) {
    const std::string path = write("calls.mcr", "Function hang()\n Do\n  x = x + 1\n Loop\n"
                                                "End Function\ny = 2\n");
    ProgramInput input;
    input.text = "step\nprint hang()\nnext\nquit\n";
    input.interruptAfter = milliseconds(500);
    const ProgramResult result = mcr({"debug", path}, input);
    EXPECT_FALSE(result.timedOut);
    EXPECT_NE(result.out.find("hang(): Interrupted\n(mcr) next\nThe macro has ended.\n"),
              std::string::npos)
        << result.out;
}

TEST_F(Mcr, SharesStandardInputWithADebuggedMacro) {
    const std::string path = write("ask.mcr", "Console.Write \"? \"\na = Console.ReadLine()\n"
                                              "b = 1\n");
    ProgramInput input;
    input.text = "break 3\nrun\nan answer\nprint a\nquit\n";
    const ProgramResult result = mcr({"debug", path, "argument"}, input);
    EXPECT_NE(result.out.find("? \nBreakpoint 1, "), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("a = \"an answer\"\n"), std::string::npos) << result.out;
    EXPECT_EQ(result.status, 0);
}

TEST_F(Mcr, SavesEditedTextInTheFormOfTheFile) {
    const std::string path = write("form.mcr", "\xEF\xBB\xBFx = 1\r\n\r\ny = 2");
    ProgramInput input;
    input.text = "edit 1 x = 3\ninsert 4 z = x + y\nstep\nremove 2\nsave\nquit\n";
    const ProgramResult result = mcr({"debug", path}, input);
    EXPECT_EQ(ReadWholeFile(path), "\xEF\xBB\xBFx = 3\r\ny = 2\r\nz = x + y\r\n") << result.out;
    EXPECT_EQ(result.status, 0);
}

// The commands of a terminal can be edited and recalled: the second line is the first one again.
TEST_F(Mcr, EditsTheLinesOfATerminal) {
    const std::string path = write("empty.mcr", "");
    ProgramInput input;
    input.text = "print 1 + 2x\x7f\n\x1b[A\n";
    const std::string program = std::string(TEST_BINARY_DIR) + "/mcr debug " + path;
    const ProgramResult result =
        RunProgram({"/usr/bin/env", "TERM=xterm", "script", "-qec", program, "/dev/null"}, input);
    const std::string answer = "1 + 2 = 3";
    const size_t first = result.out.find(answer);
    ASSERT_NE(first, std::string::npos) << result.out;
    EXPECT_NE(result.out.find(answer, first + answer.size()), std::string::npos) << result.out;
    EXPECT_EQ(result.status, 0);
}

} // namespace
