#include "docs/MarkdownPage.h"

#include "RunProgram.h"

#include <algorithm>
#include <cctype>
#include <regex>
#include <sstream>

namespace markdown {

namespace {

std::string trimmed(const std::string& text) {
    const size_t first = text.find_first_not_of(" \t\r");
    if (first == std::string::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t\r") + 1 - first);
}

// What the usual viewers make of a heading: small letters, "-" for a blank, no other signs.
std::string anchorOf(const std::string& heading) {
    std::string anchor;
    for (const char c : heading) {
        if (std::isalnum(static_cast<unsigned char>(c)) || c == '-' || c == '_')
            anchor += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        else if (c == ' ')
            anchor += '-';
    }
    return anchor;
}

// Links do not count inside code.
std::string withoutCode(const std::string& line) {
    static const std::regex code("`[^`]*`");
    return std::regex_replace(line, code, "`");
}

class Reader {
public:
    explicit Reader(Page& page) : m_Page(page) {}

    void Read(const std::string& text) {
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);) {
            ++m_Line;
            if (line.starts_with("```"))
                readFence(line.substr(3));
            else if (m_InBlock)
                m_Page.blocks.back().text += line + '\n';
            else
                readProse(line);
        }
    }

private:
    void readFence(const std::string& info) {
        m_InBlock = !m_InBlock;
        if (!m_InBlock)
            return;
        Block block;
        const size_t blank = info.find(' ');
        block.language = info.substr(0, blank);
        block.option = blank == std::string::npos ? "" : trimmed(info.substr(blank));
        block.line = m_Line + 1;
        m_Page.blocks.push_back(block);
    }

    void readProse(const std::string& line) {
        static const std::regex link(R"(\]\(([^)\s]+)\))");
        if (line.starts_with('#')) {
            Heading heading;
            heading.text = trimmed(line.substr(line.find_first_not_of('#')));
            heading.anchor = anchorOf(heading.text);
            const int before = m_Anchors[heading.anchor]++;
            if (before > 0)
                heading.anchor += '-' + std::to_string(before);
            heading.line = m_Line;
            m_Page.headings.push_back(heading);
        }
        if (line.starts_with('|'))
            m_Page.tableRows.push_back(line);
        const std::string prose = withoutCode(line);
        for (std::sregex_iterator at(prose.begin(), prose.end(), link), end; at != end; ++at)
            m_Page.links.push_back({(*at)[1].str(), m_Line});
    }

    Page& m_Page;
    std::map<std::string, int> m_Anchors;
    int m_Line = 0;
    bool m_InBlock = false;
};

} // namespace

bool Page::HasAnchor(const std::string& anchor) const {
    return std::any_of(headings.begin(), headings.end(),
                       [&](const Heading& heading) { return heading.anchor == anchor; });
}

const Heading* Page::HeadingOf(int line) const {
    const Heading* found = nullptr;
    for (const Heading& heading : headings)
        if (heading.line <= line)
            found = &heading;
    return found;
}

Page ReadPage(const std::string& path) {
    Page page;
    page.path = path;
    Reader(page).Read(ReadWholeFile(path));
    return page;
}

std::vector<std::string> Cells(const std::string& row) {
    std::vector<std::string> cells;
    std::istringstream text(row.substr(1));
    for (std::string cell; std::getline(text, cell, '|');)
        cells.push_back(trimmed(cell));
    return cells;
}

} // namespace markdown
