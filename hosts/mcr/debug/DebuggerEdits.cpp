// Commands that change something: breakpoints and the text.

#include "CommandLine.h"
#include "Debugger.h"

#include <cerrno>
#include <cstring>
#include <filesystem>

namespace fs = std::filesystem;

// --- Places ------------------------------------------------------------------------------------

ScriptFile* Debugger::findFile(const std::string& name) {
    if (ScriptFile* known = m_Files.Find(name))
        return known;
    if (ScriptFile* file = m_Files.Open(name))
        return file;
    return m_Files.Open((fs::path(m_Main->path).parent_path() / name).string());
}

// LINE, FILE:LINE, PROC or FILE:PROC.
Debugger::Target Debugger::findTarget(const std::string& text) {
    Target target{&currentFile(), 0};
    std::string place = text;
    const std::size_t colon = text.rfind(':');
    if (colon != std::string::npos) {
        target.file = findFile(text.substr(0, colon));
        place = text.substr(colon + 1);
        if (!target.file) {
            say(text.substr(0, colon) + " cannot be read.\n");
            return target;
        }
    }
    int line = 0;
    if (ParseNumber(place, line)) {
        target.line = line - 1;
        if (!target.file->text.HasLine(target.line)) {
            say(target.file->shown + " has no line " + place + ".\n");
            target.file = nullptr;
        }
        return target;
    }
    const Outline::Procedure* procedure = target.file->outline.FindProcedure(place);
    if (!procedure && colon == std::string::npos) {
        target.file = m_Main;
        procedure = m_Main->outline.FindProcedure(place);
    }
    if (procedure) {
        target.line = procedure->firstStatement;
        return target;
    }
    say("There is no procedure \"" + place + "\".\n");
    target.file = nullptr;
    return target;
}

// --- Breakpoints -------------------------------------------------------------------------------

void Debugger::doBreak(const std::string& arguments) {
    if (arguments.empty()) {
        showBreakpoints();
        return;
    }
    const Target target = findTarget(arguments);
    if (!target.file)
        return;
    long line = target.line;
    if (!target.file->outline.IsBroken()) { // else it is put right when the text is
        line = target.file->outline.FindStatement(line);
        if (line < 0) {
            say("No statement follows line " + std::to_string(target.line + 1) + ".\n");
            return;
        }
        if (line != target.line)
            say("Line " + std::to_string(target.line + 1) +
                " has no statement; the next one is on " + "line " + std::to_string(line + 1) +
                ".\n");
    }
    const Breakpoint& breakpoint = m_Breakpoints.Add(*target.file, line);
    say("Breakpoint " + std::to_string(breakpoint.number) + " at " + target.file->At(line) + "\n");
}

void Debugger::showBreakpoints() const {
    if (m_Breakpoints.IsEmpty())
        say("No breakpoints.\n");
    for (const Breakpoint& item : m_Breakpoints.GetAll())
        say("  " + std::to_string(item.number) + " at " + item.file->At(item.line) + "  " +
            Trimmed(item.file->text.GetLine(item.line)) + "\n");
}

void Debugger::doDelete(const std::string& arguments) {
    int number = 0;
    if (arguments.empty())
        m_Breakpoints.RemoveAll();
    else if (!ParseNumber(arguments, number) || !m_Breakpoints.Remove(number))
        say("There is no breakpoint " + arguments + ".\n");
}

// --- Text --------------------------------------------------------------------------------------

namespace {

/// Takes the number of a line off the front; the text keeps its leading blanks but one.
bool takeLine(const std::string& arguments, long& line, std::string& text) {
    const std::size_t end = arguments.find(' ');
    int number = 0;
    if (!ParseNumber(arguments.substr(0, end), number) || number < 1)
        return false;
    line = number - 1;
    text = end == std::string::npos ? "" : arguments.substr(end + 1);
    return true;
}

} // namespace

void Debugger::doEdit(const std::string& arguments) {
    long line = 0;
    std::string text;
    if (!takeLine(arguments, line, text))
        say("edit needs LINE TEXT.\n");
    else
        changeLine(2, line, text);
}

void Debugger::doInsert(const std::string& arguments) {
    long line = 0;
    std::string text;
    if (!takeLine(arguments, line, text))
        say("insert needs LINE TEXT.\n");
    else
        changeLine(0, line, text);
}

void Debugger::doRemove(const std::string& arguments) {
    CommandLine words(arguments);
    int first = 0;
    int last = 0;
    const bool isValid = ParseNumber(words.TakeWord(), first) && first > 0 &&
                         (words.IsEmpty() || ParseNumber(words.GetRest(), last));
    if (!isValid) {
        say("remove needs LINE [LAST].\n");
        return;
    }
    for (int count = std::max(last - first, 0) + 1; count > 0; --count)
        if (!changeLine(1, first - 1, ""))
            return;
}

// Carries one change through text, breakpoints and run; `kind` is that of the engine's changes.
bool Debugger::changeLine(int kind, long line, const std::string& text) {
    ScriptFile& file = currentFile();
    const bool atEnd = kind == 0 && line == file.text.GetCount();
    if (!atEnd && !file.text.HasLine(line)) {
        say(file.shown + " has no line " + std::to_string(line + 1) + ".\n");
        return false;
    }
    if (m_Run.IsHalted()) {
        say("The text cannot be edited while the macro is paused.\n");
        return false;
    }
    const int number = static_cast<int>(line);
    if (kind == 0) {
        file.text.InsertLine(number, text);
        m_Breakpoints.OnInserted(file, line);
    } else if (kind == 1) {
        file.text.RemoveLine(number);
        m_Breakpoints.OnRemoved(file, line);
    } else {
        file.text.SetLine(number, text);
    }
    m_Files.Refresh(file);
    if (!file.outline.IsBroken())
        say(m_Breakpoints.Settle(file));
    tellBroken(file);
    return true;
}

void Debugger::doSave(const std::string& arguments) {
    ScriptFile& file = currentFile();
    const std::string& path = arguments.empty() ? file.path : arguments;
    if (ScriptFiles::Save(file, path))
        say("Saved " + path + ".\n");
    else
        say(path + ": " + (errno != 0 ? std::strerror(errno) : "Cannot be written") + "\n");
}
