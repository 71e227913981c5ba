// Runs every macro below tests/macros through the command-line host. The macros state in comments
// what they expect, each at the start of a line:
//     ' < text          a line of standard input
//     ' > text          a line of standard output
//     ' error: 3: text  exit status 1, and "FILE:3: text" first on standard error
// Trailing blanks of an error's text are left out.

#include "MacroFiles.h"

namespace {

using namespace macrofiles;

class MacroFiles : public testing::TestWithParam<std::string> {};

TEST_P(MacroFiles, DoWhatTheyState) {
    const std::string path = (kFolder / GetParam()).string();
    const Expectation expected = readExpectation(ReadWholeFile(path));

    ProgramInput input;
    input.text = expected.input;
    input.folder = fs::path(path).parent_path().string();
    const ProgramResult result = RunProgram({TEST_BINARY_DIR "/mcr", "run", path}, input);

    ASSERT_FALSE(result.timedOut) << path;
    EXPECT_EQ(result.out, expected.output) << path;
    if (expected.HasError()) {
        EXPECT_EQ(result.status, 1) << path;
        EXPECT_EQ(firstLine(result.err), withoutTrailingBlanks(path + ":" + expected.errorLine +
                                                               ": " + expected.errorText));
    } else {
        EXPECT_EQ(result.status, 0) << path;
        EXPECT_EQ(result.err, "") << path;
    }
}

INSTANTIATE_TEST_SUITE_P(All, MacroFiles, testing::ValuesIn(findMacros()), testName);

// The reader of expectations decides what all the others prove, so it has a test of its own.
TEST(MacroFileExpectations, AreReadFromCommentsAtTheStartOfALine) {
    const Expectation expected = readExpectation("Console.WriteLine 1 ' > not this\n"
                                                 "' <  in\n' > 1\n' >\n' >  two blanks\r\n"
                                                 "' error: 12: Error: a: b\n");
    EXPECT_EQ(expected.input, " in\n");
    EXPECT_EQ(expected.output, "1\n\n two blanks\n");
    EXPECT_EQ(expected.errorLine, "12");
    EXPECT_EQ(expected.errorText, "Error: a: b");
    EXPECT_EQ(expected.count, 4);
}

} // namespace
