#pragma once

#include "DebugRun.h"
#include "LineReader.h"
#include "ValuePrinter.h"

#include <memory>
#include <string>
#include <vector>

/// The debugger as its user sees it: reads commands, shows where the macro stands.
class Debugger {
public:
    Debugger();
    Debugger(const Debugger&) = delete;
    Debugger& operator=(const Debugger&) = delete;

    /// Debugs one file to the end of the session. Gives the exit code of the program.
    int Main(const std::string& path);

private:
    /// `run` gets what stands behind the name of the command.
    struct Command {
        const char* name;
        const char* shortForms; // with a blank in front of and behind each
        const char* arguments;
        const char* help;
        void (Debugger::*run)(const std::string& arguments);
        bool isRepeated; // by an empty line
    };
    struct Target {
        ScriptFile* file = nullptr; // null: nothing was found, which has been told
        long line = 0;              // from 0
        bool isMiddle = false;      // of what is to be listed
    };
    struct WatchedExpression {
        int number;
        std::string text;
    };

    static const std::vector<Command>& commands();
    const Command* findCommand(const std::string& name) const;
    void readCommand();
    void perform(const std::string& line);
    void runOnce();
    void onHalt(const Halt& halt);

    // Commands: running.
    void doRun(const std::string& arguments);
    void doContinue(const std::string& arguments);
    void doStep(const std::string& arguments);
    void doNext(const std::string& arguments);
    void doFinish(const std::string& arguments);
    void doQuit(const std::string& arguments);
    void doHelp(const std::string& arguments);
    // Commands: looking.
    void doWhere(const std::string& arguments);
    void doFrame(const std::string& arguments);
    void doUp(const std::string& arguments);
    void doDown(const std::string& arguments);
    void doList(const std::string& arguments);
    void doLocals(const std::string& arguments);
    void doPrint(const std::string& arguments);
    void doSet(const std::string& arguments);
    void doCall(const std::string& arguments);
    void doWatch(const std::string& arguments);
    void doUnwatch(const std::string& arguments);
    // Commands: breakpoints and text.
    void doBreak(const std::string& arguments);
    void doDelete(const std::string& arguments);
    void doEdit(const std::string& arguments);
    void doInsert(const std::string& arguments);
    void doRemove(const std::string& arguments);
    void doSave(const std::string& arguments);

    void go(Stepping::Kind kind, const std::string& arguments);
    void say(const std::string& text) const;
    bool isHalted(bool tell);
    void selectFrame(int frame);
    void showSourceLine(const FrameInfo& frame) const;
    void listLines(ScriptFile& file, long first, long end);
    void showWatches();
    void showBreakpoints() const;
    void showValue(const std::string& name, const DebugRun::Evaluated& result);
    bool setVariable(const std::string& name, const std::string& expression);
    DebugRun::Evaluated evaluate(const std::string& expression, bool pure);
    ScriptFile& currentFile();
    Target findTarget(const std::string& text);
    ScriptFile* findFile(const std::string& name);
    bool mayEdit(long first, long last);
    void takeOver(const SCL_Vector<MacroParser::LineChange>& changes);
    void tellBroken(const ScriptFile& file) const;

    Session m_Session;
    ScriptFiles m_Files;
    Breakpoints m_Breakpoints;
    DebugRun m_Run;
    std::unique_ptr<LineReader> m_Reader = LineReader::Make();

    ScriptFile* m_Main = nullptr;
    std::vector<WatchedExpression> m_Watches;
    int m_LastWatch = 0;
    std::string m_Repeated; // the command of an empty line
    bool m_Starting = false;
    bool m_StopsAtFirst = false;
    bool m_Quitting = false;
    int m_Code = ExitDone;

    // Per halt.
    int m_Frame = 0;
    Target m_NextList;       // where the next list begins; no file: around the current line
    std::string m_ToldPlace; // file, procedure and depth, told when they change
};
