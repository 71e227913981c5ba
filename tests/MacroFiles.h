#pragma once

// The macros below tests/macros and what they state of themselves.

#include "RunProgram.h"
#include "TestPaths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <ostream>
#include <sstream>
#include <string>
#include <utility>
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

/// One macro of a file. A line that states an error ends it; the next one begins behind the blank
/// lines that follow.
struct MacroCase {
    std::string file;
    int line = 1; ///< of the file, where the macro begins
    std::string text;
    bool isWholeFile = true;

    std::string Path() const { return (kFolder / file).string(); }
    std::string Title() const {
        return isWholeFile ? file : file + ", line " + std::to_string(line);
    }
};

inline std::ostream& operator<<(std::ostream& out, const MacroCase& macro) {
    return out << macro.Title();
}

inline std::vector<MacroCase> cutIntoMacros(const std::string& file, const std::string& text) {
    std::vector<MacroCase> macros;
    std::size_t start = 0;
    int line = 1;
    for (std::size_t at = 0; at < text.size() || macros.empty();) {
        const std::size_t end = std::min(text.find('\n', at), text.size() - 1) + 1;
        const bool states = text.compare(at, 8, "' error:") == 0;
        at = end;
        if (!states && at < text.size())
            continue;
        macros.push_back({file, line, text.substr(start, at - start), false});
        while (at < text.size() && text[at] == '\n')
            ++at;
        line += static_cast<int>(std::count(text.begin() + static_cast<std::ptrdiff_t>(start),
                                            text.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
        start = at;
    }
    if (macros.size() == 1)
        macros.front() = {file, 1, text, true};
    return macros;
}

inline std::vector<MacroCase> findMacros() {
    std::vector<std::string> names;
    if (fs::exists(kFolder)) {
        for (const auto& entry : fs::recursive_directory_iterator(kFolder)) {
            if (entry.path().extension() == ".mcr")
                names.push_back(fs::relative(entry.path(), kFolder).generic_string());
        }
    }
    std::sort(names.begin(), names.end());
    std::vector<MacroCase> macros;
    for (const std::string& name : names) {
        for (MacroCase& macro : cutIntoMacros(name, ReadWholeFile((kFolder / name).string())))
            macros.push_back(std::move(macro));
    }
    return macros;
}

inline std::string testName(const testing::TestParamInfo<MacroCase>& info) {
    const std::string& file = info.param.file;
    std::string name = file.substr(0, file.rfind('.'));
    if (!info.param.isWholeFile)
        name += "_" + std::to_string(info.param.line);
    for (char& character : name) {
        if (!std::isalnum(static_cast<unsigned char>(character)))
            character = '_';
    }
    return name;
}

} // namespace macrofiles
