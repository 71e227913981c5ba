#pragma once

// Parses texts in tests.

#include "../MemorySource.h"

#include <UI_MacroProcessor.h>

#include <sstream>
#include <string>
#include <utility>

#include "interpreter/TreeDump.h"

/// What a parse came to: the tree as text, or the error's text.
struct Parsed {
    bool ok = false;
    std::string tree;
    std::string error; // without place
    long line = -1;    // zero-based
    std::string full;  // the error as the host sees it
};

inline Parsed ParseText(const std::string& text, bool lineByLine = false, bool dump = true) {
    MacroParser processor(true);
    processor.SetSource(
        new MemorySource(text, lineByLine ? Feed::LineByLine : Feed::Whole, "test.mcr"));
    processor.Reset();
    Parsed result;
    try {
        result.ok = processor.Parse();
        if (result.ok && dump)
            DumpTree(processor.GetTree(), result.tree);
        if (result.ok)
            return result;
    } catch (const MacroException& error) {
        result.full = error.GetText().c_str();
    }
    result.error = processor.GetLastErrorText().c_str();
    result.line = processor.GetLastErrorLine();
    return result;
}

/// A tree on one line: `Statement let {Object x; LongValue 1}`.
inline std::string OnOneLine(const std::string& tree) {
    std::string text;
    std::size_t depth = 0;
    std::istringstream lines(tree);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t level = line.find_first_not_of(' ') / 2;
        if (level > depth)
            text += " {";
        else if (!text.empty())
            text += std::string(depth - level, '}') + "; ";
        text += line.substr(2 * level);
        depth = level;
    }
    return text + std::string(depth, '}');
}
