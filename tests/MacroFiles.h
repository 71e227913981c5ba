#pragma once

// The macros below tests/macros and what they state of themselves.

#include "RunProgram.h"
#include "TestPaths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

namespace macrofiles {

namespace fs = std::filesystem;

inline const fs::path kFolder = fs::path(TEST_PROJECT_DIR) / "tests/macros";

struct Expectation {
    std::string input;
    std::string output;
    std::string errorLine;
    std::string errorText;
    int count = 0;

    bool HasError() const { return !errorLine.empty(); }
};

// What follows the prefix, without the blank that sets it off.
inline bool takePrefix(const std::string& line, const std::string& prefix, std::string& rest) {
    if (!line.starts_with(prefix))
        return false;
    rest = line.substr(prefix.size());
    if (rest.starts_with(' '))
        rest.erase(0, 1);
    if (rest.ends_with('\r'))
        rest.pop_back();
    return true;
}

inline Expectation readExpectation(const std::string& macro) {
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

inline std::string withoutTrailingBlanks(std::string text) {
    text.erase(text.find_last_not_of(" \t\r") + 1);
    return text;
}

inline std::string firstLine(const std::string& text) {
    return withoutTrailingBlanks(text.substr(0, text.find('\n')));
}

inline std::vector<std::string> findMacros() {
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

inline std::string testName(const testing::TestParamInfo<std::string>& info) {
    std::string name = info.param.substr(0, info.param.rfind('.'));
    for (char& character : name) {
        if (!std::isalnum(static_cast<unsigned char>(character)))
            character = '_';
    }
    return name;
}

} // namespace macrofiles
