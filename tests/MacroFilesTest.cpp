// Runs every macro below tests/macros through the command-line host. The macros state in comments
// what they expect, each at the start of a line:
//     ' < text          a line of standard input
//     ' > text          a line of standard output
//     ' error: 3: text  exit status 1, and "FILE:3: text" first on standard error
// Trailing blanks of an error's text are left out.

#include "RunProgram.h"
#include "TestPaths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <sstream>

namespace {

namespace fs = std::filesystem;

const fs::path kFolder = fs::path(TEST_PROJECT_DIR) / "tests/macros";

struct Expectation {
    std::string input;
    std::string output;
    std::string errorLine;
    std::string errorText;
    int count = 0;

    bool HasError() const { return !errorLine.empty(); }
};

// What follows the prefix, without the blank that sets it off.
bool takePrefix(const std::string& line, const std::string& prefix, std::string& rest) {
    if (!line.starts_with(prefix))
        return false;
    rest = line.substr(prefix.size());
    if (rest.starts_with(' '))
        rest.erase(0, 1);
    if (rest.ends_with('\r'))
        rest.pop_back();
    return true;
}

Expectation readExpectation(const std::string& macro) {
    Expectation expected;
    std::istringstream lines(macro);
    std::string line;
    std::string rest;
    while (std::getline(lines, line)) {
        if (takePrefix(line, "' <", rest)) {
            expected.input += rest + '\n';
            continue;
        }
        if (takePrefix(line, "' >", rest)) {
            expected.output += rest + '\n';
        } else if (takePrefix(line, "' error:", rest)) {
            const size_t colon = rest.find(": ");
            expected.errorLine = rest.substr(0, colon);
            expected.errorText = colon == std::string::npos ? "" : rest.substr(colon + 2);
        } else {
            continue;
        }
        ++expected.count;
    }
    return expected;
}

std::string withoutTrailingBlanks(std::string text) {
    text.erase(text.find_last_not_of(" \t\r") + 1);
    return text;
}

std::string firstLine(const std::string& text) {
    return withoutTrailingBlanks(text.substr(0, text.find('\n')));
}

std::vector<std::string> findMacros() {
    std::vector<std::string> names;
    if (fs::exists(kFolder)) {
        for (const auto& entry : fs::recursive_directory_iterator(kFolder)) {
            if (entry.path().extension() == ".mcr")
                names.push_back(fs::relative(entry.path(), kFolder).generic_string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string testName(const testing::TestParamInfo<std::string>& info) {
    std::string name = info.param.substr(0, info.param.rfind('.'));
    for (char& character : name) {
        if (!std::isalnum(static_cast<unsigned char>(character)))
            character = '_';
    }
    return name;
}

class MacroFiles : public testing::TestWithParam<std::string> {};

TEST_P(MacroFiles, DoWhatTheyState) {
    const std::string path = (kFolder / GetParam()).string();
    const Expectation expected = readExpectation(ReadWholeFile(path));
    ASSERT_GT(expected.count, 0) << path << " states nothing that it expects";

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
