// Hostile texts with next to no native stack: nothing in the engine may recurse over them.

#include "RunProgram.h"
#include "TestPaths.h"
#include "macroengine/EngineFixture.h"

namespace {

std::string repeated(const char* piece, int count) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += piece;
    return text;
}

// The sanitizers need a stack of their own.
#if defined(__SANITIZE_ADDRESS__)
const char* const kStack = "8192";
#else
const char* const kStack = "256";
#endif

TEST(SmallStack, HostileTextsGiveAResultOrAnError) {
    const struct {
        const char* name;
        std::string text;
        const char* output;
        int status;
    } rows[] = {
        {"parentheses that fit",
         "x = " + repeated("(", 190) + "1" + repeated(")", 190) + "\nConsole.WriteLine x\n", "1\n",
         0},
        {"parentheses that do not", "x = " + repeated("(", 200) + "1" + repeated(")", 200), "", 1},
        {"unary minuses", "x = " + repeated("-", 100000) + "1", "", 1},
        {"one long line", "x = 0" + repeated(" : x = x + 1", 90000) + "\nConsole.WriteLine x",
         "90000\n", 0},
        {"many lines", "x = 0\n" + repeated("x = x + 1\n", 200000) + "Console.WriteLine x",
         "200000\n", 0},
        {"a long sum", "x = 1" + repeated(" + 1", 100000) + "\nConsole.WriteLine x", "100001\n", 0},
        {"dots", "x = a" + repeated(".b", 100000), "", 1},
        {"deep recursion",
         "Function f(n)\nIf n > 0 Then f = f(n - 1) + 1 Else f = 0\nEnd Function\n"
         "Console.WriteLine f(100000)",
         "100000\n", 0},
        {"nested arrays",
         "a = 1\nFor i = 1 To 900\nDim b(0)\nb(0) = a\na = b\nNext\n"
         "Console.WriteLine TypeName(a)",
         "Array\n", 0},
        {"open blocks", repeated("If x Then\n", 300), "", 1},
    };
    const TestFolder folder;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const std::string file = folder.Write("hostile.mcr", row.text);
        const std::string command =
            std::string("ulimit -s ") + kStack + "; exec " TEST_BINARY_DIR "/mcr run " + file;
        const ProgramResult result = RunProgram({"/bin/sh", "-c", command}, {});
        EXPECT_FALSE(result.timedOut);
        EXPECT_EQ(result.status, row.status) << result.err.substr(0, 300);
        EXPECT_EQ(result.out, row.output);
    }
}

} // namespace
