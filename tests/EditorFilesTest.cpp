// The files under editors/: made from the words of this engine, and in agreement with it.

#include "RunProgram.h"
#include "TestPaths.h"

#include <gtest/gtest.h>

namespace {

class EditorFiles : public testing::TestWithParam<std::string> {};

TEST_P(EditorFiles, AreInOrder) {
    const ProgramResult result =
        RunProgram({"/usr/bin/env", "python3", TEST_PROJECT_DIR "/tests/editors/check.py",
                    GetParam(), TEST_PROJECT_DIR, TEST_BINARY_DIR "/mcr"});
    EXPECT_EQ(result.out + result.err, "");
    EXPECT_EQ(result.status, 0);
}

INSTANTIATE_TEST_SUITE_P(All, EditorFiles,
                         testing::Values("current", "grammar", "indentation", "snippets",
                                         "problems", "package"),
                         [](const auto& each) { return each.param; });

} // namespace
