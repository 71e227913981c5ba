#pragma once

#include "../Session.h"
#include "Breakpoints.h"
#include "DebugSource.h"
#include "Stepping.h"

#include <functional>
#include <string>

/// Why a run stands still.
struct Halt {
    enum Reason { AfterStep, AtBreakpoint, Interrupted, AfterError };
    Reason reason = AfterStep;
    int breakpoint = 0; ///< its number
    std::string error;  ///< what failed
};

/// One open frame; 0 is the innermost.
struct FrameInfo {
    ScriptFile* file = nullptr; ///< null if the text is not one of the debugger's
    long line = -1;             ///< from 0; below 0 if nothing of it has run
    std::string procedure;
    std::string Describe() const; ///< "PROCEDURE at FILE:LINE"
};

/// Runs a macro, stops it where it is asked to, and changes its text while it stands still.
class DebugRun : private SourceEvents {
public:
    /// `onHalt` is called while the run stands still, until it lets the run go on or stops it.
    DebugRun(Session& session, ScriptFiles& files, Breakpoints& breakpoints,
             std::function<void(const Halt&)> onHalt);
    DebugRun(const DebugRun&) = delete;
    DebugRun& operator=(const DebugRun&) = delete;
    ~DebugRun();

    /// Makes a file the one that evaluations stand in while nothing runs.
    void Prepare(ScriptFile& file);
    /// From the start to the end. Gives the exit code; an error that nobody stops at is told.
    struct Outcome {
        int code = ExitDone;
        bool wasStopped = false;
        std::string error;
    };
    Outcome Run(ScriptFile& file, bool stopAtFirst);

    bool IsHalted() const { return m_Halted; }
    /// Whether a frame is one that can return, or an executed file.
    bool CanFinish(int frame) const;
    /// A step is measured from that frame.
    void GoOn(Stepping::Kind kind, int count, int frame);
    void Stop();

    int GetFrameCount();
    FrameInfo GetFrame(int frame);

    /// What became of a changed line. A run cannot go on while its text is broken.
    enum class Edited { Done, Broken, Ended };
    /// Takes over lines that have been changed in the text of the file in which the run stands.
    /// While the text does not parse as a whole, changes are kept back.
    Edited TakeOver(const ScriptFile& file, const SCL_Vector<MacroParser::LineChange>& changes,
                    std::string& error);
    bool IsTextBroken() const { return m_Refused || !m_Pending.empty(); }

    /// A value, or what is wrong.
    struct Evaluated {
        UI_MacroVariant value;
        std::string error;
    };
    /// Evaluates an expression in the innermost frame. A pure one calls no procedures.
    Evaluated Evaluate(const std::string& expression, bool pure);
    /// Runs a statement there; its value if it is a call.
    Evaluated Execute(const std::string& statement);
    /// The variables of a frame, and the engine that reads and writes them.
    UI_Macro& GetVariables() { return m_Frames; }

private:
    bool OnStatement(const ScriptFile& file, long line) override;
    bool OnFailure(MacroException& error) override;
    ScriptFile* OnOpen(const std::string& path) override;
    void onIdle();

    static MacroParser& processor();
    Place placeAt(const ScriptFile& file, long line) const;
    bool haltsAt(const Place& here);
    bool halt(Halt halt);
    Evaluated evaluate(const std::string& text, bool pure);
    long shownLine(const ScriptFile* file, long line) const;

    Session& m_Session;
    ScriptFiles& m_Files;
    Breakpoints& m_Breakpoints;
    const std::function<void(const Halt&)> m_OnHalt;
    const MacroHostHooks m_OldHooks;
    UI_Macro m_Frames{false}; // reads the frames of the current engine, makes none of its own

    // Per run.
    Stepping m_Stepping;
    Halt m_Halt;
    bool m_Halted = false;
    bool m_Stopped = false;
    const ParserTree::Node* m_Passed = nullptr; // the statement at which the run goes on
    bool m_Evaluating = false;
    SCL_Vector<MacroParser::LineChange> m_Pending; // not told to the engine yet
    const ScriptFile* m_PendingFile = nullptr;
    bool m_Refused = false; // the engine could not take over what it was told
};
