// The guide for hosts quotes programs that the tests compile and run. A block of it names the file
// it comes from, and the part of that file, which stands there between two marks `//! [part]`:
//
//     ```cpp examples/host_recording.cpp#output

#include "RunProgram.h"
#include "TestPaths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

namespace {

namespace fs = std::filesystem;

using Texts = std::vector<std::string>;

const fs::path kProject = TEST_PROJECT_DIR;
const fs::path kGuide = kProject / "docs" / "embedding.md";

Texts linesOf(const fs::path& file) {
    std::istringstream text(ReadWholeFile(file.string()));
    Texts lines;
    for (std::string line; std::getline(text, line);)
        lines.push_back(line);
    return lines;
}

std::string joined(const Texts& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

/// Moves all lines to the left until one begins in the first column.
void alignLeft(Texts& lines) {
    std::size_t indent = std::string::npos;
    for (const std::string& line : lines)
        indent = std::min(indent, line.find_first_not_of(' '));
    for (std::string& line : lines)
        line.erase(0, std::min(indent, line.size()));
}

std::string markOf(const std::string& line) {
    const std::size_t start = line.find("//! [");
    const bool isMark =
        start != std::string::npos && line.back() == ']' && line.find_first_not_of(' ') == start;
    return isMark ? line.substr(start + 5, line.size() - start - 6) : "";
}

/// A file without its marks, or a part of it.
std::string quoted(const std::string& reference) {
    const std::size_t hash = reference.find('#');
    const std::string part = hash == std::string::npos ? "" : reference.substr(hash + 1);
    Texts lines;
    bool inside = part.empty();
    int marks = 0;
    for (const std::string& line : linesOf(kProject / reference.substr(0, hash))) {
        const std::string mark = markOf(line);
        if (!part.empty() && mark == part) {
            inside = !inside;
            ++marks;
        } else if (inside && mark.empty()) {
            lines.push_back(line);
        }
    }
    EXPECT_TRUE(part.empty() || marks == 2) << reference << " has " << marks << " marks";
    alignLeft(lines);
    return joined(lines);
}

struct Block {
    std::string language;
    std::string reference;
    Texts lines;
    std::size_t line; // where it begins, from 1
};

std::vector<Block> blocksOf(const Texts& page) {
    std::vector<Block> blocks;
    bool open = false;
    for (std::size_t i = 0; i < page.size(); ++i) {
        if (page[i].starts_with("```")) {
            open = !open;
            if (!open)
                continue;
            const std::string head = page[i].substr(3);
            const std::size_t blank = std::min(head.find(' '), head.size());
            blocks.push_back(
                {head.substr(0, blank), head.substr(std::min(blank + 1, head.size())), {}, i + 1});
        } else if (open) {
            blocks.back().lines.push_back(page[i]);
        }
    }
    EXPECT_FALSE(open) << "the last block is never closed";
    return blocks;
}

TEST(EmbeddingGuide, ShowsTheProgramsAsTheyAre) {
    for (const Block& block : blocksOf(linesOf(kGuide))) {
        SCOPED_TRACE("line " + std::to_string(block.line) + ": " + block.reference);
        ASSERT_FALSE(block.reference.empty()) << "a block must say where it comes from";
        const std::string file = block.reference.substr(0, block.reference.find('#'));
        ASSERT_TRUE(fs::is_regular_file(kProject / file));
        EXPECT_EQ(joined(block.lines), quoted(block.reference));
    }
}

} // namespace
