// The session: reading commands, running and stopping.

#include "Debugger.h"

#include "../Commands.h"
#include "../Console.h"
#include "CommandLine.h"
#include "Interrupt.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

int DebugMacro(const std::string& file) {
    const Interrupt interrupt;
    return Debugger().Main(file);
}

Debugger::Debugger()
    : m_Files(m_Session.GetTrace()),
      m_Run(m_Session, m_Files, m_Breakpoints, [this](const Halt& halt) { onHalt(halt); }) {}

int Debugger::Main(const std::string& path) {
    errno = 0;
    m_Main = m_Files.Open(path);
    if (!m_Main) {
        const char* reason = errno != 0 ? std::strerror(errno) : "Cannot be read";
        WriteError("mcr: " + path + ": " + reason + "\n");
        return ExitUsage;
    }
    m_Run.Prepare(*m_Main);
    tellBroken(*m_Main);
    while (!m_Quitting) {
        if (m_Starting)
            runOnce();
        else
            readCommand();
    }
    return m_Code;
}

void Debugger::runOnce() {
    m_Starting = false;
    m_ToldPlace.clear();
    Console::Flush(); // the macro may write in other ways, too
    const DebugRun::Outcome outcome = m_Run.Run(*m_Main, m_StopsAtFirst);
    m_Code = outcome.code;
    m_Repeated.clear(); // an empty line too many must not start the macro again
    m_Frame = 0;
    m_NextList = Target();
    if (!outcome.error.empty())
        say(outcome.error + "\n");
    else if (!outcome.wasStopped && outcome.code != ExitDone)
        say("The macro has ended with code " + std::to_string(outcome.code) + ".\n");
    else if (!outcome.wasStopped)
        say("The macro has ended.\n");
}

void Debugger::onHalt(const Halt& halt) {
    selectFrame(0);
    const FrameInfo frame = m_Run.GetFrame(0);
    const std::string place = frame.procedure + " " + (frame.file ? frame.file->path : "") + " " +
                              std::to_string(m_Run.GetFrameCount());
    switch (halt.reason) {
    case Halt::AtBreakpoint:
        say("Breakpoint " + std::to_string(halt.breakpoint) + ", " + frame.Describe() + "\n");
        break;
    case Halt::Interrupted:
        say("Interrupted, " + frame.Describe() + "\n");
        break;
    case Halt::AfterError:
        say("Failed, " + frame.Describe() + "\n" + halt.error + "\n");
        break;
    case Halt::AfterStep:
        if (place != m_ToldPlace)
            say(frame.Describe() + "\n");
        break;
    }
    m_ToldPlace = place;
    showSourceLine(frame);
    showWatches();
    while (m_Run.IsHalted())
        readCommand();
    Console::Flush();
}

// --- Commands ----------------------------------------------------------------------------------

void Debugger::readCommand() {
    Console::StartLine();
    std::string line;
    if (m_Reader->Read("(mcr) ", line)) {
        perform(line);
        return;
    }
    doQuit("");
}

void Debugger::perform(const std::string& line) {
    const std::string given = Trimmed(line).empty() ? m_Repeated : line;
    CommandLine words(given);
    if (words.IsEmpty())
        return;
    const Command* command = findCommand(words.TakeWord());
    if (!command)
        return;
    const bool goesOn = command->run == &Debugger::doList; // behind what has been listed
    m_Repeated = !command->isRepeated ? "" : goesOn ? command->name : given;
    (this->*command->run)(words.GetRest());
}

const std::vector<Debugger::Command>& Debugger::commands() {
    static const std::vector<Command> list = {
        {"break", " b ", "[[FILE:]LINE|PROC]", "stop there; alone: show the breakpoints",
         &Debugger::doBreak, false},
        {"delete", " d ", "[NUMBER]", "delete a breakpoint, or all", &Debugger::doDelete, false},
        {"run", " r ", "", "run from the start", &Debugger::doRun, false},
        {"step", " s ", "[COUNT]", "run to the next line, into procedures", &Debugger::doStep,
         true},
        {"next", " n ", "[COUNT]", "run to the next line of this procedure", &Debugger::doNext,
         true},
        {"finish", " fin ", "", "run until this procedure has returned", &Debugger::doFinish, true},
        {"continue", " c ", "", "run on", &Debugger::doContinue, true},
        {"print", " p ", "EXPR", "show a value", &Debugger::doPrint, false},
        {"set", "", "NAME = EXPR", "give a variable another value", &Debugger::doSet, false},
        {"call", "", "STATEMENT", "carry out a statement", &Debugger::doCall, false},
        {"watch", " w ", "[EXPR]", "show a value at every stop; alone: now", &Debugger::doWatch,
         false},
        {"unwatch", "", "[NUMBER]", "end a watch, or all", &Debugger::doUnwatch, false},
        {"where", " bt backtrace ", "", "show the open procedures", &Debugger::doWhere, false},
        {"frame", " f ", "NUMBER", "look at another open procedure", &Debugger::doFrame, false},
        {"up", "", "", "look at the caller", &Debugger::doUp, false},
        {"down", "", "", "look at what is called", &Debugger::doDown, false},
        {"locals", "", "", "show the variables of the frame", &Debugger::doLocals, false},
        {"list", " l ", "[LINE[,LAST]|PROC]", "show the text", &Debugger::doList, true},
        {"edit", " e ", "LINE TEXT", "change a line", &Debugger::doEdit, false},
        {"insert", " i ", "LINE TEXT", "insert a line in front of one", &Debugger::doInsert, false},
        {"remove", "", "LINE [LAST]", "remove lines", &Debugger::doRemove, false},
        {"save", "", "[FILE]", "write the edited text", &Debugger::doSave, false},
        {"help", " h ? ", "", "show this list", &Debugger::doHelp, false},
        {"quit", " q exit ", "", "end the session", &Debugger::doQuit, false},
    };
    return list;
}

// A name, one of its short forms, or a beginning that no other command has.
const Debugger::Command* Debugger::findCommand(const std::string& name) const {
    const Command* found = nullptr;
    std::string candidates;
    for (const Command& command : commands()) {
        const bool isShort =
            std::string(command.shortForms).find(" " + name + " ") != std::string::npos;
        if (isShort || name == command.name)
            return &command;
        if (!std::string(command.name).starts_with(name))
            continue;
        found = &command;
        candidates += std::string(candidates.empty() ? "" : ", ") + command.name;
    }
    if (candidates.find(',') == std::string::npos && found)
        return found;
    say(found ? "\"" + name + "\" can be: " + candidates + "\n"
              : "No command \"" + name + "\"; help shows them all.\n");
    return nullptr;
}

void Debugger::doHelp(const std::string&) {
    constexpr std::size_t kColumn = 30;
    std::string text;
    for (const Command& command : commands()) {
        std::string left = std::string(command.name) + " " + command.arguments;
        left.resize(std::max(kColumn, left.size() + 1), ' ');
        text += left + command.help + "\n";
    }
    say(text + "Names can be cut short. An empty line repeats step, next, finish, continue, "
               "list.\n");
}

void Debugger::doQuit(const std::string&) {
    m_Quitting = true;
    for (const auto& file : m_Files.GetAll())
        if (file->text.IsChanged())
            say("The edits of " + file->shown + " are not saved.\n");
    if (m_Run.IsHalted())
        m_Run.Stop();
}

void Debugger::doRun(const std::string&) {
    m_Starting = true;
    m_StopsAtFirst = false;
    if (m_Run.IsHalted())
        m_Run.Stop();
}

void Debugger::doContinue(const std::string&) {
    if (isHalted(true))
        go(Stepping::Continue, "");
}

void Debugger::doStep(const std::string& arguments) { go(Stepping::Step, arguments); }

void Debugger::doNext(const std::string& arguments) { go(Stepping::Next, arguments); }

void Debugger::doFinish(const std::string&) {
    if (!isHalted(true))
        return;
    if (m_Run.CanFinish(m_Frame))
        go(Stepping::Finish, "");
    else
        say("The module level is not called by anything; continue runs to its end.\n");
}

void Debugger::go(Stepping::Kind kind, const std::string& arguments) {
    int count = 1;
    if (!arguments.empty() && (!ParseNumber(arguments, count) || count < 1)) {
        say("\"" + arguments + "\" is no count.\n");
        return;
    }
    if (!m_Run.IsHalted()) {
        m_Starting = true;
        m_StopsAtFirst = true;
    } else if (m_Run.IsTextBroken()) {
        say("The edited text does not parse yet, and the macro cannot go on.\n");
        tellBroken(currentFile());
    } else {
        m_Run.GoOn(kind, count, kind == Stepping::Finish ? m_Frame : 0);
    }
}

// --- Helpers -----------------------------------------------------------------------------------

void Debugger::say(const std::string& text) const {
    Console::StartLine();
    std::fwrite(text.data(), 1, text.size(), stdout);
}

bool Debugger::isHalted(bool tell) {
    if (!m_Run.IsHalted() && tell)
        say("The macro is not running; run starts it.\n");
    return m_Run.IsHalted();
}

ScriptFile& Debugger::currentFile() {
    if (m_Run.IsHalted())
        if (ScriptFile* file = m_Run.GetFrame(m_Frame).file)
            return *file;
    return *m_Main;
}

void Debugger::tellBroken(const ScriptFile& file) const {
    if (file.outline.IsBroken())
        say(file.At(file.outline.GetErrorLine()) + ": " + file.outline.GetError() + "\n");
}
