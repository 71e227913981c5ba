// Runs every macro below tests/macros through the command-line host. The macros state in comments
// what they expect, each at the start of a line:
//     ' < text          a line of standard input
//     ' > text          a line of standard output
//     ' error: 3: text  exit status 1, and "FILE:3: text" first on standard error
// Trailing blanks of an error's text are left out. The line that states an error ends its macro; a
// file may hold several, and each counts its lines from 1.

#include "MacroFiles.h"
#include "system/platform/TempDirectory.h"

namespace {

using namespace macrofiles;

class MacroFiles : public testing::TestWithParam<MacroCase> {};

TEST_P(MacroFiles, DoWhatTheyState) {
    const MacroCase& macro = GetParam();
    const Expectation expected = readExpectation(macro.text);
    const TempDirectory folder;
    const std::string path =
        macro.isWholeFile ? macro.Path()
                          : std::string(folder.Write("case.mcr", macro.text.c_str()).c_str());

    ProgramInput input;
    input.text = expected.input;
    input.folder = fs::path(macro.Path()).parent_path().string();
    const ProgramResult result = RunProgram({TEST_BINARY_DIR "/mcr", "run", path}, input);

    ASSERT_FALSE(result.timedOut);
    EXPECT_EQ(result.out, expected.output);
    if (expected.HasError()) {
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(firstLine(result.err), withoutTrailingBlanks(path + ":" + expected.errorLine +
                                                               ": " + expected.errorText));
    } else {
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.err, "");
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

TEST(MacroFileExpectations, EndAMacroWithItsError) {
    const std::vector<MacroCase> macros =
        cutIntoMacros("f.mcr", "a\n' > x\n' error: 1: E\n\n\nb\n' error: 2: F\nc\nd");
    ASSERT_EQ(macros.size(), 3u);
    EXPECT_EQ(macros[0].text, "a\n' > x\n' error: 1: E\n");
    EXPECT_EQ(macros[1].text, "b\n' error: 2: F\n");
    EXPECT_EQ(macros[1].line, 6);
    EXPECT_EQ(macros[2].text, "c\nd");
    EXPECT_EQ(macros[2].line, 8);
    EXPECT_TRUE(cutIntoMacros("f.mcr", "\na\n' error: 2: E\n").front().isWholeFile);
    EXPECT_EQ(cutIntoMacros("f.mcr", "").size(), 1u);
}

} // namespace
