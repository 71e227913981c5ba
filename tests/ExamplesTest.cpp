// Everything under examples/ runs and prints what the file beside it says, and the README shows
// these files as they are.

#include "RunProgram.h"
#include "TestPaths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

const fs::path kFolder = fs::path(TEST_PROJECT_DIR) / "examples";

std::vector<std::string> findExamples() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(kFolder)) {
        const std::string extension = entry.path().extension().string();
        if (extension == ".mcr" || extension == ".cpp")
            names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string testName(const testing::TestParamInfo<std::string>& info) {
    std::string name = info.param;
    std::replace(name.begin(), name.end(), '.', '_');
    return name;
}

class Examples : public testing::TestWithParam<std::string> {};

TEST_P(Examples, PrintWhatTheirExpectedFileSays) {
    const fs::path path = kFolder / GetParam();
    const std::string stem = path.stem().string();
    std::vector<std::string> command = {TEST_BINARY_DIR "/mcr", "run", path.string()};
    if (path.extension() == ".cpp")
        command = {TEST_BINARY_DIR "/" + stem};

    ProgramInput input;
    input.folder = kFolder.string();
    const ProgramResult result = RunProgram(command, input);
    EXPECT_FALSE(result.timedOut);
    EXPECT_EQ(result.out, ReadWholeFile((kFolder / (stem + ".expected")).string()));
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.status, 0);
}

INSTANTIATE_TEST_SUITE_P(All, Examples, testing::ValuesIn(findExamples()), testName);

class Readme : public testing::TestWithParam<std::string> {};

TEST_P(Readme, QuotesTheExampleAsItIs) {
    const std::string readme = ReadWholeFile(TEST_PROJECT_DIR "/README.md");
    const std::string example = ReadWholeFile((kFolder / GetParam()).string());
    EXPECT_NE(readme.find("\n" + example + "```\n"), std::string::npos)
        << "README.md shows another text than examples/" << GetParam();
}

INSTANTIATE_TEST_SUITE_P(All, Readme,
                         testing::Values("hello.mcr", "hello.expected", "tour.expected",
                                         "host_minimal.cpp", "host_minimal.expected"),
                         testName);

} // namespace
