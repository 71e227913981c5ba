// Commands that look at the macro: frames, text, values.

#include "CommandLine.h"
#include "Debugger.h"
#include "ErrorText.h"

#include <algorithm>

namespace {

constexpr int kListLines = 10;
constexpr int kMostFrames = 20;
constexpr int kMostLocals = 100;

constexpr ValuePrinter::Bounds kPrinted = {100, 4, 300, 1000};
constexpr ValuePrinter::Bounds kListed = {10, 2, 40, 80};

/// A line of text with its number, behind the marks of the current line and of a breakpoint.
std::string sourceLine(const ScriptFile& file, long line, bool isCurrent, bool stops) {
    constexpr std::size_t kWidth = 5;
    const std::string number = std::to_string(line + 1);
    return std::string(isCurrent ? ">" : " ") + (stops ? "*" : " ") +
           std::string(kWidth - std::min(kWidth, number.size()), ' ') + number + "  " +
           file.text.GetLine(line) + "\n";
}

} // namespace

// --- Frames ------------------------------------------------------------------------------------

void Debugger::doWhere(const std::string&) {
    if (!isHalted(true))
        return;
    const int count = m_Run.GetFrameCount();
    std::string text;
    for (int i = 0; i < count; ++i) {
        if (count > kMostFrames && i == kMostFrames - 1) {
            text += "  ... " + std::to_string(count - kMostFrames) + " more\n";
            i = count - 1;
        }
        text += std::string(i == m_Frame ? ">" : " ") + "#" + std::to_string(i) + " " +
                m_Run.GetFrame(i).Describe() + "\n";
    }
    say(text);
}

void Debugger::selectFrame(int frame) {
    m_Frame = frame;
    m_NextList = Target();
}

void Debugger::doFrame(const std::string& arguments) {
    int frame = m_Frame;
    if (!isHalted(true))
        return;
    const int last = m_Run.GetFrameCount() - 1;
    if (!arguments.empty() && (!ParseNumber(arguments, frame) || frame > last)) {
        say("There is no frame " + arguments + "; the last one is " + std::to_string(last) + ".\n");
        return;
    }
    selectFrame(frame);
    const FrameInfo info = m_Run.GetFrame(frame);
    say("#" + std::to_string(frame) + " " + info.Describe() + "\n");
    showSourceLine(info);
}

void Debugger::doUp(const std::string&) { doFrame(std::to_string(m_Frame + 1)); }

void Debugger::doDown(const std::string&) {
    if (m_Frame > 0 || !m_Run.IsHalted())
        doFrame(std::to_string(std::max(m_Frame - 1, 0)));
    else
        say("This is the innermost frame.\n");
}

// --- Text --------------------------------------------------------------------------------------

void Debugger::showSourceLine(const FrameInfo& frame) const {
    if (frame.file && frame.file->text.HasLine(frame.line))
        say(sourceLine(*frame.file, frame.line, true,
                       m_Breakpoints.Find(*frame.file, frame.line) != nullptr));
}

void Debugger::doList(const std::string& arguments) {
    Target target = m_NextList;
    int last = 0;
    if (!arguments.empty()) {
        const std::size_t comma = arguments.find(',');
        target = findTarget(Trimmed(arguments.substr(0, comma)));
        if (!target.file)
            return;
        if (comma != std::string::npos &&
            (!ParseNumber(Trimmed(arguments.substr(comma + 1)), last) ||
             (!target.isMiddle && last <= target.line))) {
            say("\"" + arguments + "\" is no range of lines.\n");
            return;
        }
    } else if (!target.file) {
        const long current = m_Run.IsHalted() ? m_Run.GetFrame(m_Frame).line : 0;
        target = {&currentFile(), current, true};
    }
    if (target.isMiddle) // something in front of it is to be seen as well
        target.line = std::max(target.line - kListLines / 2, 0L);
    listLines(*target.file, target.line, last > 0 ? last : target.line + kListLines);
}

void Debugger::listLines(ScriptFile& file, long first, long end) {
    end = std::min<long>(end, file.text.GetCount());
    if (first >= end)
        say(file.shown + " ends with line " + std::to_string(file.text.GetCount()) + ".\n");
    const FrameInfo frame = m_Run.IsHalted() ? m_Run.GetFrame(m_Frame) : FrameInfo{};
    for (long line = first; line < end; ++line)
        say(sourceLine(file, line, frame.file == &file && frame.line == line,
                       m_Breakpoints.Find(file, line) != nullptr));
    m_NextList = {&file, end};
}

// --- Values ------------------------------------------------------------------------------------

void Debugger::doLocals(const std::string&) {
    UI_Macro& variables = m_Run.GetVariables();
    const auto list = variables.GetVariables(m_Frame);
    std::string text;
    int shown = 0;
    for (const MacroVariableInfo& info : list) {
        UI_MacroVariant value;
        if (!variables.GetVariable(m_Frame, info.name, value))
            continue;
        if (++shown > kMostLocals) {
            text +=
                "... " + std::to_string(static_cast<int>(list.size()) - kMostLocals) + " more\n";
            break;
        }
        text += ValuePrinter(kListed).Show(info.name.c_str(), value);
    }
    say(text.empty() ? "No variables.\n" : text);
}

// A variable is read as it is, also one that has the name of its procedure, and also in an outer
// frame; everything else is an expression of the innermost frame.
DebugRun::Evaluated Debugger::evaluate(const std::string& expression, bool pure) {
    DebugRun::Evaluated result;
    UI_Macro& variables = m_Run.GetVariables();
    if (IsIdentifier(expression) &&
        variables.GetVariable(m_Frame, SYS_String(expression), result.value))
        return result;
    if (m_Frame > 0) {
        result.error = "In an outer frame only variables can be shown and set";
        return result;
    }
    return m_Run.Evaluate(expression, pure);
}

void Debugger::showValue(const std::string& name, const DebugRun::Evaluated& result) {
    if (result.error.empty())
        say(ValuePrinter(kPrinted).Show(name, result.value));
    else
        say(name + ": " + result.error + "\n");
}

void Debugger::doPrint(const std::string& arguments) {
    if (arguments.empty())
        say("print needs an expression.\n");
    else
        showValue(arguments, evaluate(arguments, false));
}

void Debugger::doSet(const std::string& arguments) {
    const std::size_t equals = arguments.find('=');
    const std::string name = Trimmed(arguments.substr(0, equals));
    const std::string expression =
        equals == std::string::npos ? "" : Trimmed(arguments.substr(equals + 1));
    if (name.empty() || expression.empty()) {
        say("set needs NAME = EXPR.\n");
        return;
    }
    if (IsIdentifier(name) && setVariable(name, expression))
        return;
    DebugRun::Evaluated result;
    if (m_Frame > 0)
        result.error = "In an outer frame only variables can be shown and set";
    else
        result = m_Run.Execute(arguments);
    if (!result.error.empty())
        say(name + ": " + result.error + "\n");
}

// False if there is no such variable. What is wrong otherwise is told here.
bool Debugger::setVariable(const std::string& name, const std::string& expression) {
    UI_Macro& variables = m_Run.GetVariables();
    UI_MacroVariant old;
    if (!variables.GetVariable(m_Frame, SYS_String(name), old))
        return false;
    DebugRun::Evaluated result = m_Run.Evaluate(expression, false);
    if (result.error.empty()) {
        try {
            if (!variables.SetVariable(m_Frame, SYS_String(name), result.value))
                result.error = "This is a constant";
        } catch (const MacroException& error) {
            result.error = ShortErrorText(error.GetText());
        }
    }
    if (!result.error.empty())
        say(name + ": " + result.error + "\n");
    return true;
}

void Debugger::doCall(const std::string& arguments) {
    if (arguments.empty()) {
        say("call needs a statement.\n");
        return;
    }
    const DebugRun::Evaluated result = m_Run.Execute(arguments);
    if (!result.error.empty() || !result.value.IsEmpty())
        showValue(arguments, result);
}

void Debugger::doWatch(const std::string& arguments) {
    if (!arguments.empty())
        m_Watches.push_back({++m_LastWatch, arguments});
    if (m_Watches.empty())
        say("Nothing is watched.\n");
    else if (arguments.empty())
        showWatches();
    else
        say("Watch " + std::to_string(m_LastWatch) + ": " + arguments + "\n");
}

void Debugger::doUnwatch(const std::string& arguments) {
    int number = 0;
    if (arguments.empty())
        m_Watches.clear();
    else if (!ParseNumber(arguments, number) || std::erase_if(m_Watches, [&](const auto& watch) {
                                                    return watch.number == number;
                                                }) == 0)
        say("There is no watch " + arguments + ".\n");
}

void Debugger::showWatches() {
    for (const WatchedExpression& watch : m_Watches) {
        const DebugRun::Evaluated result = evaluate(watch.text, true);
        const std::string value =
            result.error.empty() ? ValuePrinter(kListed).Line(result.value) : result.error;
        say("  " + std::to_string(watch.number) + ": " + watch.text + " = " + value + "\n");
    }
}
