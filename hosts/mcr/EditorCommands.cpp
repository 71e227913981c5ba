#include "EditorCommands.h"

#include "Session.h"

#include <CLI/CLI.hpp>

EditorCommands::EditorCommands(CLI::App& app) {
    constexpr const char* kFile = "Macro file; - is standard input";

    m_Check = app.add_subcommand("check", "Parse macros without running them");
    m_Check->add_option("FILE", m_Files, "Macro files; - is standard input")->required();

    m_Tokens = app.add_subcommand("tokens", "Print the pieces that an editor colours");
    m_Tokens->add_option("FILE", m_File, kFile)->required();

    m_Highlight = app.add_subcommand("highlight", "Print a macro in colour");
    m_Highlight->add_option("FILE", m_File, kFile)->required();
    m_Highlight->add_flag("--html", m_AsPage, "Print a page of HTML");

    m_Outline = app.add_subcommand("outline", "Print the procedures and names of a macro");
    m_Outline->add_option("FILE", m_File, kFile)->required();
    m_Outline->add_flag("--json", m_AsJson, "Print it for programs");

    m_Words = app.add_subcommand("words", "Print the words of the language, each with its kind");
}

std::optional<int> EditorCommands::Run() const {
    try {
        return run();
    } catch (const std::exception& error) { // no memory for a giant text
        WriteError("mcr: " + std::string(error.what()) + "\n");
        return ExitUsage;
    }
}

std::optional<int> EditorCommands::run() const {
    if (*m_Check)
        return CheckMacros(m_Files);
    if (*m_Tokens)
        return PrintTokens(m_File);
    if (*m_Highlight)
        return PrintHighlighted(m_File, m_AsPage);
    if (*m_Outline)
        return PrintOutline(m_File, m_AsJson);
    if (*m_Words)
        return PrintWords();
    return std::nullopt;
}
