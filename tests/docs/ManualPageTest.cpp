// The manual page of mcr has the commands and options that mcr has.

#include "RunProgram.h"
#include "TestPaths.h"

#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>
#include <sstream>

namespace {

using Names = std::set<std::string>;

std::string mcrHelp(std::vector<std::string> words) {
    words.insert(words.begin(), TEST_BINARY_DIR "/mcr");
    words.emplace_back("--help");
    return RunProgram(words).out;
}

/// The first word of each indented line behind "Subcommands:".
Names findCommands() {
    Names commands;
    std::istringstream lines(mcrHelp({}));
    bool isList = false;
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string first;
        words >> first;
        if (isList && line.starts_with("  ") && std::isalpha(line[2]) != 0)
            commands.insert(first);
        isList = isList || first == "Subcommands:" || first == "SUBCOMMANDS:";
    }
    return commands;
}

Names findOptions(const std::string& text) {
    static const std::regex option("--([a-z]+)");
    Names options;
    for (std::sregex_iterator at(text.begin(), text.end(), option), end; at != end; ++at)
        options.insert((*at)[1]);
    options.erase("help"); // told once for all
    return options;
}

/// The text of each section ".SS NAME", with plain minus signs.
std::map<std::string, std::string> readSections() {
    std::map<std::string, std::string> sections;
    std::istringstream lines(std::regex_replace(ReadWholeFile(TEST_PROJECT_DIR "/docs/mcr.1"),
                                                std::regex(R"(\\-)"), "-"));
    std::string name;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(".SH"))
            name.clear();
        else if (line.starts_with(".SS "))
            sections[name = line.substr(4)];
        else if (!name.empty())
            sections[name] += line + '\n';
    }
    return sections;
}

TEST(ManualPage, HasTheCommandsAndOptionsOfMcr) {
    const Names commands = findCommands();
    EXPECT_TRUE(commands.contains("run"));
    const std::map<std::string, std::string> sections = readSections();
    Names told;
    for (const auto& [name, text] : sections) {
        told.insert(name);
        EXPECT_EQ(findOptions(text), findOptions(mcrHelp({name}))) << "mcr " << name;
    }
    EXPECT_EQ(told, commands);
}

} // namespace
