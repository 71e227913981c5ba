// Sessions of the debugger, written down as a terminal shows them:
//     $ cat FILE      what follows is put into that file; behind a session it is what is in it
//     $ mcr debug ... what follows is the session; what stands behind "(mcr) " is typed
//     $ echo $?       the exit status of the session
// Those of the guide are real ones as well. Blanks at the ends of lines do not count.

#include "RunProgram.h"
#include "TestPaths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

const fs::path kFolder = fs::path(TEST_PROJECT_DIR) / "tests/hosts/mcr/debug";
const std::string kGuide = TEST_PROJECT_DIR "/docs/debugging.md";
const std::string kPrompt = "(mcr)";

/// A command of the shell and what follows it.
struct Entry {
    std::vector<std::string> words;
    std::string text;
};

std::string withoutBlanksAtEnds(const std::string& text) {
    std::string result;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        result += line.erase(line.find_last_not_of(" \t\r") + 1) + '\n';
    return result;
}

std::vector<Entry> readEntries(const std::string& transcript) {
    std::vector<Entry> entries;
    std::istringstream lines(transcript);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("$ ")) {
            std::istringstream words(line.substr(2));
            entries.emplace_back();
            for (std::string word; words >> word;)
                entries.back().words.push_back(word);
        } else if (!entries.empty()) {
            entries.back().text += line + '\n';
        }
    }
    return entries;
}

/// The blocks of a guide that show a terminal; a session may go on in the next one.
std::string blocksOf(const std::string& guide) {
    std::string result;
    bool isInside = false;
    bool isTerminal = false;
    std::istringstream lines(guide);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("```")) {
            isInside = !isInside;
            isTerminal = false;
            continue;
        }
        isTerminal =
            isInside && (isTerminal || line.starts_with("$ ") || line.starts_with(kPrompt));
        if (isTerminal)
            result += line + '\n';
    }
    return result;
}

/// What is typed. The last prompt is left without an answer if the input ends there.
std::string commandsOf(const std::string& session) {
    std::vector<std::string> commands;
    std::istringstream lines(session);
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with(kPrompt))
            commands.push_back(line.substr(std::min(kPrompt.size() + 1, line.size())));
    if (!commands.empty() && commands.back().empty())
        commands.pop_back();
    std::string text;
    for (const std::string& command : commands)
        text += command + '\n';
    return text;
}

class DebugTranscript : public testing::Test {
protected:
    void SetUp() override {
        m_Folder = fs::temp_directory_path() / ("mcr-debug-" + std::to_string(getpid()));
        fs::remove_all(m_Folder);
        fs::create_directories(m_Folder);
    }
    void TearDown() override { fs::remove_all(m_Folder); }

    void play(const std::string& transcript) {
        const std::vector<Entry> entries = readEntries(transcript);
        int sessions = 0;
        for (const Entry& entry : entries) {
            ASSERT_GE(entry.words.size(), 2u);
            if (entry.words[0] == "cat") {
                showFile(m_Folder / entry.words[1], entry.text);
            } else if (entry.words[0] == "mcr") {
                ++sessions;
                run(entry);
            } else {
                ASSERT_EQ(entry.words[0], "echo");
                EXPECT_EQ(entry.text, std::to_string(m_Status) + "\n");
            }
        }
        EXPECT_GT(sessions, 0);
    }

private:
    static void showFile(const fs::path& path, const std::string& text) {
        if (fs::exists(path)) {
            EXPECT_EQ(ReadWholeFile(path.string()), text) << path;
            return;
        }
        fs::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << text;
    }

    void run(const Entry& entry) {
        std::vector<std::string> command = entry.words;
        command[0] = TEST_BINARY_DIR "/mcr";
        ProgramInput input;
        input.folder = m_Folder.string();
        input.text = commandsOf(entry.text);
        const ProgramResult result = RunProgram(command, input);
        EXPECT_FALSE(result.timedOut);
        EXPECT_EQ(withoutBlanksAtEnds(result.out), withoutBlanksAtEnds(entry.text));
        EXPECT_EQ(result.err, "");
        m_Status = result.status;
    }

    fs::path m_Folder;
    int m_Status = 0;
};

class DebugSession : public DebugTranscript, public testing::WithParamInterface<std::string> {};

TEST_P(DebugSession, GoesAsItIsWrittenDown) {
    play(ReadWholeFile((kFolder / (GetParam() + ".session")).string()));
}

TEST_F(DebugTranscript, OfTheGuideGoesAsItIsWrittenDown) { play(blocksOf(ReadWholeFile(kGuide))); }

std::vector<std::string> findSessions() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(kFolder))
        if (entry.path().extension() == ".session")
            names.push_back(entry.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

INSTANTIATE_TEST_SUITE_P(All, DebugSession, testing::ValuesIn(findSessions()),
                         [](const auto& session) { return session.param; });

} // namespace
