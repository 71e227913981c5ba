#pragma once

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

/// The commands that look at macro texts without running them.
class EditorCommands {
public:
    /// Adds the commands. The app must not outlive this.
    explicit EditorCommands(CLI::App& app);
    EditorCommands(const EditorCommands&) = delete;
    EditorCommands& operator=(const EditorCommands&) = delete;

    /// Does what the command line has asked for: the exit code, or nothing if that is none of
    /// these commands.
    std::optional<int> Run() const;

private:
    std::optional<int> run() const;

    std::vector<std::string> m_Files;
    std::string m_File;
    bool m_AsPage = false;
    bool m_AsJson = false;
    CLI::App* m_Check;
    CLI::App* m_Tokens;
    CLI::App* m_Highlight;
    CLI::App* m_Outline;
    CLI::App* m_Words;
};

// Each gives the exit code of the program.

/// One line for each faulty file, and a summary if there are several files.
int CheckMacros(const std::vector<std::string>& files);
/// The pieces of a text for an editor, one a line.
int PrintTokens(const std::string& file);
/// The text in the colours of the terminal, or as a page of HTML.
int PrintHighlighted(const std::string& file, bool asPage);
/// The procedures and the declared names of a macro.
int PrintOutline(const std::string& file, bool asJson);
/// Every word with a fixed meaning and its kind, one a line.
int PrintWords();
