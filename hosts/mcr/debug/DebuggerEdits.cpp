// Commands that change something: breakpoints and the text.

#include "CommandLine.h"
#include "Debugger.h"

#include <algorithm>
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
    Target target{&currentFile()};
    std::string place = text;
    const std::size_t colon = text.rfind(':');
    if (colon != std::string::npos && colon > 0) {
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
    std::vector<ScriptFile*> candidates = {target.file};
    if (colon == std::string::npos)
        for (const auto& file : m_Files.GetAll())
            candidates.push_back(file.get());
    for (ScriptFile* file : candidates)
        if (const Outline::Procedure* procedure = file->outline.FindProcedure(place))
            return {file, procedure->firstStatement, true};
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
    if (!takeLine(arguments, line, text)) {
        say("edit needs LINE TEXT.\n");
    } else if (mayEdit(line, line)) {
        currentFile().text.SetLine(static_cast<int>(line), text);
        takeOver({{2, static_cast<int>(line)}});
    }
}

void Debugger::doInsert(const std::string& arguments) {
    long line = 0;
    std::string text;
    if (!takeLine(arguments, line, text)) {
        say("insert needs LINE TEXT.\n");
    } else if (mayEdit(line, line - 1)) { // also behind the last one
        ScriptFile& file = currentFile();
        file.text.InsertLine(static_cast<int>(line), text);
        m_Breakpoints.OnInserted(file, line);
        takeOver({{0, static_cast<int>(line)}});
    }
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
    last = std::max(first, last);
    if (!mayEdit(first - 1, last - 1))
        return;
    ScriptFile& file = currentFile();
    SCL_Vector<MacroParser::LineChange> changes;
    for (int count = last - first + 1; count > 0; --count) {
        file.text.RemoveLine(first - 1);
        m_Breakpoints.OnRemoved(file, first - 1);
        changes.push_back({1, first - 1});
    }
    takeOver(changes);
}

// Whether lines can be changed: the last one must be there, and a run takes changes of the file in
// which it stands only.
bool Debugger::mayEdit(long first, long last) {
    const ScriptFile& file = currentFile();
    if (last >= file.text.GetCount()) {
        say(file.shown + " has no line " + std::to_string(std::max(first, last) + 1) + ".\n");
        return false;
    }
    if (!m_Run.IsHalted() || m_Run.GetFrame(0).file == &file)
        return true;
    say("Only the file in which the macro stands can be edited while it is paused.\n");
    return false;
}

// Carries changes of the text on to the breakpoints and the run.
void Debugger::takeOver(const SCL_Vector<MacroParser::LineChange>& changes) {
    ScriptFile& file = currentFile();
    m_Files.Refresh(file);
    if (!file.outline.IsBroken())
        say(m_Breakpoints.Settle(file));
    if (!m_Run.IsHalted()) {
        tellBroken(file);
        return;
    }
    const long before = m_Run.GetFrame(0).line;
    std::string error;
    switch (m_Run.TakeOver(file, changes, error)) {
    case DebugRun::Edited::Done:
        if (m_Run.GetFrame(0).line != before)
            showSourceLine(m_Run.GetFrame(0));
        break;
    case DebugRun::Edited::Broken:
        say(error + "\n");
        break;
    case DebugRun::Edited::Ended:
        say("This changes what is running too much; the macro has been stopped.\n");
        break;
    }
}

void Debugger::doSave(const std::string& arguments) {
    ScriptFile& file = currentFile();
    const std::string& path = arguments.empty() ? file.path : arguments;
    if (ScriptFiles::Save(file, path))
        say("Saved " + path + ".\n");
    else
        say(path + ": " + (errno != 0 ? std::strerror(errno) : "Cannot be written") + "\n");
}
