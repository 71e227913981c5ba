#pragma once

// A page of the documentation, as far as the tests look at it.

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace markdown {

/// A fenced block: "```language option".
struct Block {
    std::string language;
    std::string option;
    std::string text;
    int line = 0; ///< of its first line of text; counted from 1
};

struct Heading {
    std::string text;
    std::string anchor;
    int line = 0;
};

struct Link {
    std::string target;
    int line = 0;
};

struct Page {
    std::string path;
    std::vector<Block> blocks;
    std::vector<Heading> headings;
    std::vector<Link> links;
    std::vector<std::string> tableRows;

    bool HasAnchor(const std::string& anchor) const;
    /// The heading whose section holds the line; null in front of the first.
    const Heading* HeadingOf(int line) const;
};

Page ReadPage(const std::string& path);

/// The cells of a table row, without the blanks around them.
std::vector<std::string> Cells(const std::string& row);

} // namespace markdown
