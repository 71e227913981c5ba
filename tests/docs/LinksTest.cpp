// Every link between the pages of the documentation leads somewhere.

#include "TestPaths.h"
#include "docs/MarkdownPage.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> findPages() {
    std::vector<fs::path> pages;
    for (const auto& entry : fs::directory_iterator(TEST_PROJECT_DIR))
        if (entry.path().extension() == ".md")
            pages.push_back(entry.path());
    for (const auto& entry : fs::recursive_directory_iterator(TEST_PROJECT_DIR "/docs"))
        if (entry.path().extension() == ".md")
            pages.push_back(entry.path());
    return pages;
}

bool leadsOutside(const std::string& target) {
    return target.starts_with("https://") || target.starts_with("http://") ||
           target.starts_with("mailto:");
}

/// What is wrong with the link; empty: nothing.
std::string faultOf(const fs::path& page, const std::string& target) {
    const size_t hash = target.find('#');
    const std::string file = target.substr(0, hash);
    const fs::path path = file.empty() ? page : page.parent_path() / file;
    if (!fs::exists(path))
        return "no such file";
    if (hash == std::string::npos)
        return {};
    if (path.extension() != ".md")
        return "an anchor in a file that is no page";
    const bool hasAnchor = markdown::ReadPage(path.string()).HasAnchor(target.substr(hash + 1));
    return hasAnchor ? "" : "no such heading";
}

TEST(DocumentationLinks, LeadToFilesAndHeadings) {
    int count = 0;
    for (const fs::path& path : findPages()) {
        for (const markdown::Link& link : markdown::ReadPage(path.string()).links) {
            if (leadsOutside(link.target))
                continue;
            ++count;
            const std::string fault = faultOf(path, link.target);
            if (!fault.empty())
                ADD_FAILURE_AT(path.c_str(), link.line) << link.target << ": " << fault;
        }
    }
    EXPECT_GT(count, 0);
}

TEST(DocumentationLinks, AreCheckedAgainstHeadingsAsViewersNameThem) {
    const fs::path page = TEST_PROJECT_DIR "/docs/language/surprises.md";
    EXPECT_EQ(faultOf(page, "#-and-a-name-that-begins-with-h"), "");
    EXPECT_EQ(faultOf(page, "text.md#numbers-with-a-unit-of-length"), "");
    EXPECT_EQ(faultOf(page, "#no-such-thing"), "no such heading");
    EXPECT_EQ(faultOf(page, "none.md"), "no such file");
}

} // namespace
