// The guide for macro authors, docs/language.md and docs/language/: its examples run and do what it
// says, and it tells of everything that the language has.
//
// A block of code is one of these:
//     basic              a macro; it is run
//     basic file=NAME    a file that later examples of the page use; written, not run
//     text               what the block in front of it writes, errors behind the output
//                        (none behind a macro whose next block is a sh: it writes nothing)
//     text file=NAME     a file, as above
//     sh                 a command line; a text block follows
//     form               the form of a statement; not run
// Instead of a text block, comments in a macro may say what it does:
//     ' > text           a line of output
//     ' < text           a line of input
//     ' error: text      the run ends with this error, on this line
//     ' error 3: text    the same on another line

#include "RunProgram.h"
#include "TestPaths.h"
#include "docs/MarkdownPage.h"

#include <MacroException.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using markdown::Block;
using markdown::Page;

const fs::path kDocs = fs::path(TEST_PROJECT_DIR) / "docs";
const std::string kMacro = "macro.mcr";
const std::string kFileOption = "file=";

std::vector<std::string> findPages() {
    std::vector<std::string> pages = {"language.md"};
    if (fs::exists(kDocs / "language")) {
        for (const auto& entry : fs::directory_iterator(kDocs / "language"))
            pages.push_back("language/" + entry.path().filename().string());
    }
    std::sort(pages.begin(), pages.end());
    return pages;
}

std::string withoutTrailingBlanks(std::string text) {
    text.erase(text.find_last_not_of(" \t\r\n") + 1);
    return text;
}

// ---- Examples

struct Expectation {
    std::string input;
    std::string output;
    std::string error; // "LINE: text"; empty: none
    bool stated = false;
};

// The comment of a line; an apostrophe inside a string begins none.
std::string commentOf(const std::string& line) {
    bool inString = false;
    for (size_t at = 0; at < line.size(); ++at) {
        if (line[at] == '"')
            inString = !inString;
        else if (line[at] == '\'' && !inString)
            return line.substr(at + 1);
    }
    return {};
}

bool takePrefix(std::string& comment, const std::string& prefix) {
    if (!comment.starts_with(prefix))
        return false;
    comment.erase(0, prefix.size());
    if (comment.starts_with(' '))
        comment.erase(0, 1);
    return true;
}

Expectation readExpectation(const std::string& macro) {
    Expectation expected;
    std::istringstream lines(macro);
    int number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        std::string comment = commentOf(line);
        if (takePrefix(comment, " >"))
            expected.output += comment + '\n';
        else if (takePrefix(comment, " <"))
            expected.input += comment + '\n';
        else if (takePrefix(comment, " error:"))
            expected.error = std::to_string(number) + ": " + comment;
        else if (takePrefix(comment, " error"))
            expected.error = comment;
        else
            continue;
        expected.stated = true;
    }
    return expected;
}

/// Runs the blocks of one page in a folder of their own.
class Examples {
public:
    explicit Examples(const Page& page) : m_Page(page) {
        m_Folder = fs::temp_directory_path() / ("guide-test-" + std::to_string(getpid()));
        fs::create_directories(m_Folder);
    }
    ~Examples() { fs::remove_all(m_Folder); }
    Examples(const Examples&) = delete;
    Examples& operator=(const Examples&) = delete;

    void Run() {
        for (m_At = 0; m_At < m_Page.blocks.size(); ++m_At) {
            const Block& block = m_Page.blocks[m_At];
            if (block.option.starts_with(kFileOption))
                write(block.option.substr(kFileOption.size()), block.text);
            else if (block.language == "basic")
                runMacro(block);
            else if (block.language == "sh")
                compare(block, run({"/bin/sh", "-c", withPath(block.text)}, {}));
            else if (block.language != "form")
                fail(block, "A block \"" + block.language + "\" that belongs to nothing");
        }
    }

private:
    void runMacro(const Block& block) {
        write(kMacro, block.text);
        const Expectation expected = readExpectation(block.text);
        const ProgramResult result = run({TEST_BINARY_DIR "/mcr", "run", kMacro}, expected.input);
        if (!expected.stated || (expected.output.empty() && expected.error.empty())) {
            compare(block, result);
            return;
        }
        if (result.out != expected.output)
            fail(block, "The macro prints\n" + result.out + "instead of\n" + expected.output);
        std::string error = withoutTrailingBlanks(result.err.substr(0, result.err.find('\n')));
        if (error.starts_with(kMacro + ":"))
            error.erase(0, kMacro.size() + 1);
        if (error != withoutTrailingBlanks(expected.error))
            fail(block, "The error is \"" + error + "\" instead of \"" + expected.error + "\"");
        if (result.status != (expected.error.empty() ? 0 : 1))
            fail(block, "Exit status " + std::to_string(result.status));
    }

    bool isNext(const char* language) const {
        return m_At + 1 < m_Page.blocks.size() && m_Page.blocks[m_At + 1].language == language &&
               m_Page.blocks[m_At + 1].option.empty();
    }

    // The output is in the block behind.
    void compare(const Block& block, const ProgramResult& result) {
        if (block.language == "basic" && isNext("sh")) {
            if (!result.out.empty() || !result.err.empty())
                fail(block, "The example shows\n" + result.out + result.err);
            return;
        }
        if (!isNext("text")) {
            fail(block, "The guide does not say what this example does");
            return;
        }
        const Block& output = m_Page.blocks[++m_At];
        std::istringstream lines(result.out + result.err);
        std::string shown;
        for (std::string line; std::getline(lines, line);)
            shown += withoutTrailingBlanks(line) + '\n';
        if (shown != output.text)
            fail(output, "The example shows\n" + shown);
        if (block.language == "basic" && (result.status == 0) != result.err.empty())
            fail(block, "Exit status " + std::to_string(result.status));
    }

    ProgramResult run(const std::vector<std::string>& command, const std::string& text) {
        ProgramInput input;
        input.text = text;
        input.folder = m_Folder.string();
        return RunProgram(command, input);
    }

    static std::string withPath(const std::string& commands) {
        return "PATH=" TEST_BINARY_DIR ":$PATH\n" + commands;
    }

    void write(const std::string& name, const std::string& text) const {
        fs::create_directories((m_Folder / name).parent_path());
        std::ofstream(m_Folder / name, std::ios::binary) << text;
    }

    void fail(const Block& block, const std::string& message) const {
        ADD_FAILURE_AT(m_Page.path.c_str(), block.line) << message;
    }

    const Page& m_Page;
    fs::path m_Folder;
    size_t m_At = 0;
};

class Guide : public testing::TestWithParam<std::string> {};

TEST_P(Guide, ExamplesDoWhatItSays) {
    const Page page = markdown::ReadPage((kDocs / GetParam()).string());
    Examples(page).Run();
}

std::string testName(const testing::TestParamInfo<std::string>& info) {
    std::string name = fs::path(info.param).stem().string();
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(All, Guide, testing::ValuesIn(findPages()), testName);

// The reader decides what all examples prove, so it has a test of its own.
TEST(GuideExpectations, AreReadFromComments) {
    const Expectation expected = readExpectation("Console.WriteLine \"' > not\" '  no\n"
                                                 "x = 1 ' > 1\n' < in\n"
                                                 "' > \n"
                                                 "y = \"a\"\"\" ' error: Error: a: \n");
    EXPECT_EQ(expected.output, "1\n\n");
    EXPECT_EQ(expected.input, "in\n");
    EXPECT_EQ(expected.error, "5: Error: a: ");
    EXPECT_EQ(readExpectation("' error 7: text").error, "7: text");
    EXPECT_FALSE(readExpectation("x = 1 ' plain").stated);
}

// ---- Completeness

/// The words of a macro's code, in small letters: no strings, no comments.
std::set<std::string> wordsOf(const std::string& macro) {
    std::set<std::string> words;
    std::string word;
    bool inString = false;
    bool inComment = false;
    for (const char c : macro + "\n") {
        if (c == '\n')
            inString = inComment = false;
        else if (c == '"' && !inComment)
            inString = !inString;
        else if (c == '\'' && !inString)
            inComment = true;
        if (!inString && !inComment && (std::isalnum(static_cast<unsigned char>(c)) || c == '_')) {
            word += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        } else if (!word.empty()) {
            words.insert(word);
            word.clear();
        }
    }
    return words;
}

class GuideTellsOf : public testing::Test {
protected:
    void SetUp() override {
        for (const std::string& name : findPages())
            m_Pages.push_back(markdown::ReadPage((kDocs / name).string()));
    }

    /// The row of a table whose first cell is this.
    std::vector<std::string> row(const std::string& firstCell) const {
        for (const Page& page : m_Pages) {
            for (const std::string& text : page.tableRows) {
                std::vector<std::string> cells = markdown::Cells(text);
                if (!cells.empty() && cells[0] == firstCell)
                    return cells;
            }
        }
        return {};
    }

    /// The words of the examples below a heading.
    std::set<std::string> wordsBelow(const std::string& heading) const {
        std::set<std::string> words;
        for (const Page& page : m_Pages) {
            for (const Block& block : page.blocks) {
                const markdown::Heading* above = page.HeadingOf(block.line);
                if (block.language == "basic" && above && above->text == heading)
                    words.merge(wordsOf(block.text));
            }
        }
        return words;
    }

    /// Whether an example states it.
    bool isShown(const std::string& text) const {
        return std::any_of(m_Pages.begin(), m_Pages.end(), [&](const Page& page) {
            return std::any_of(page.blocks.begin(), page.blocks.end(), [&](const Block& block) {
                return block.text.find(text) != std::string::npos;
            });
        });
    }

    /// Whether the first page has a link with this end.
    bool isLinked(const std::string& end) const {
        return std::any_of(m_Pages[0].links.begin(), m_Pages[0].links.end(),
                           [&](const markdown::Link& link) { return link.target.ends_with(end); });
    }

    std::vector<Page> m_Pages;
};

std::string inSmallLetters(std::string name) {
    for (char& c : name)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return name;
}

TEST_F(GuideTellsOf, EveryFunction) {
    const char* const names[] = {
#define MACRO_FUNCTION(name) #name,
#include "runtime/Functions.def"
#undef MACRO_FUNCTION
    };
    for (const std::string name : names) {
        EXPECT_TRUE(wordsBelow(name).contains(inSmallLetters(name)))
            << name << " has no section with an example";
        EXPECT_TRUE(isLinked("#" + inSmallLetters(name))) << name << " is not in the list";
    }
}

TEST_F(GuideTellsOf, EveryKeyword) {
    const char* const keywords[] = {
#define KEYWORD(text, token) text,
#include "language/Keywords.def"
#undef KEYWORD
    };
    std::set<std::string> used;
    for (const Page& page : m_Pages) {
        for (const Block& block : page.blocks)
            if (block.language == "basic")
                used.merge(wordsOf(block.text));
    }
    for (const std::string keyword : keywords) {
        const bool isWord = std::isalpha(static_cast<unsigned char>(keyword[0])) != 0;
        EXPECT_FALSE(row("`" + keyword + "`").empty()) << keyword << " is in no table";
        EXPECT_TRUE(!isWord || used.contains(keyword)) << keyword << " is in no example";
    }
}

TEST_F(GuideTellsOf, EveryError) {
    const struct {
        int number;
        std::string text;
    } errors[] = {
#define MACRO_ERROR(code, name, id, text) {code, text},
#include "engine/ErrorCodes.def"
#undef MACRO_ERROR
    };
    for (const auto& error : errors) {
        const std::vector<std::string> cells = row(std::to_string(error.number));
        ASSERT_GE(cells.size(), 3u) << error.number;
        if (!error.text.empty()) {
            EXPECT_EQ(cells[1], "`" + error.text + "`") << error.number;
        }
        const bool isReachable = !error.text.empty() && !cells[2].starts_with("never") &&
                                 !cells[2].starts_with("from a host");
        EXPECT_TRUE(!isReachable || isShown(error.text)) << error.text << " is in no example";
    }
}

TEST_F(GuideTellsOf, EveryConstant) {
    const struct {
        std::string name;
        std::string value;
    } constants[] = {
#define INTEGER_CONSTANT(name, value) {#name, #value},
#define STRING_CONSTANT(name, text) {#name, ""},
#include "language/Constants.def"
#undef INTEGER_CONSTANT
#undef STRING_CONSTANT
    };
    for (const auto& constant : constants) {
        const std::vector<std::string> cells = row("`" + constant.name + "`");
        ASSERT_GE(cells.size(), 2u) << constant.name << " is in no table";
        if (!constant.value.empty()) {
            EXPECT_EQ(cells[1], constant.value) << constant.name;
        }
    }
}

TEST_F(GuideTellsOf, EveryColour) {
    const struct {
        std::string name;
        long value;
    } colours[] = {
#define MACRO_COLOR(name, value) {"vbColor" #name, value},
#include "runtime/Colors.def"
#undef MACRO_COLOR
    };
    for (const auto& colour : colours) {
        const std::vector<std::string> cells = row("`" + colour.name + "`");
        ASSERT_GE(cells.size(), 2u) << colour.name << " is in no table";
        EXPECT_EQ(cells[1], std::to_string(colour.value)) << colour.name;
    }
}

} // namespace
