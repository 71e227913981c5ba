#pragma once

// Where macro text comes from and where recorded text goes. A source is also the hook of a
// debugger: the run loop asks it at every statement whether to stop.

#include <SCC_Array.h>
#include <SCC_Event.h>
#include <SCL_Pointer.h>
#include <SCL_Types.h>
#include <SFM_File.h>
#include <SYS_String.h>

using namespace kel_ns;

class MacroException;

/// Text for the parser, and the debugger's hook into the run. Counted: the engine takes a
/// reference; an object on the stack must call DisableRefCount and outlive the engine's use.
class KEL_MCR_API MacroSource : public tRefCounted<iRefCounted> {
public:
    MacroSource() = default;
    ~MacroSource() override;

    /// The mode became paused. Must change the mode before it returns, or leave that to the
    /// host's idle hook. Re-enters: any.
    virtual void OnPause();

protected:
    /// For hosts; the engine does not call it.
    virtual void OnEnableExecution(int enable);

public:
    /// Back to the start of the text. Also called when a processor lets go of the source.
    virtual void Reset() = 0;
    /// Gives the next piece of text (a line, or all of it) and 1; 0 at the end. A line may come
    /// with or without its end; a NUL ends the text. `forParsing` is always true. Where the lines
    /// come one by one, their numbers are those that the source keeps: it calls SetPosition with
    /// the number of the line that it gives, and SetNextPosition with that of the next.
    virtual int GetNextLine(SYS_String& line, bool forParsing) = 0;
    /// Stands in errors and is what scripts that the macro runs lie beside; may be empty.
    virtual SYS_String GetFileName() = 0;
    /// Asked for every statement that is about to run; `line` is zero-based. True interrupts the
    /// run before it, which goes on in the mode that is set by then: to pause, set emPaused. May
    /// also stop the run or edit the macro.
    virtual bool IsBreakPoint(long line);
    /// For hosts; the engine calls neither.
    virtual void OnContinue();
    virtual void OnWakeup();
    /// True if the text comes line by line.
    virtual bool LineByLine();
    /// A new source (count 0) for a script that the macro runs, or null if there is none of that
    /// name: the macro then fails. `name` is absolute.
    virtual MacroSource* Clone(char const* name) = 0;
    /// Asked before anything of a failing run is unwound, not in evaluations. True keeps the macro
    /// alive at the failing statement, which runs again: the cause must be out of the way by then,
    /// or the mode emPaused. May stop the run.
    virtual bool BreakOnError(MacroException& error);

    /// The line that the run has just passed, zero-based.
    long GetPosition() const { return m_Position; }
    void SetPosition(long position) { m_Position = position; }
    /// The line that is about to run, zero-based.
    long GetNextPosition() const { return m_NextPosition; }
    void SetNextPosition(long position) { m_NextPosition = position; }

    /// Told by the base OnPause, so that the run loop knows that nobody is going to resume.
    bool TakeNoDebuggerNote();

protected:
    void noteNoDebugger() { m_NoDebugger = true; }

private:
    long m_Position = 0;
    long m_NextPosition = 0;
    bool m_NoDebugger = false;
};

/// A macro file, given to the parser as a whole.
class KEL_MCR_API MacroSourceFile : public MacroSource {
public:
    /// Opens the file; null makes a source without one.
    explicit MacroSourceFile(char const* name);
    ~MacroSourceFile() override;

    /// Closes the file, so that the user can edit it during a pause.
    void OnPause() override;
    void Reset() override;
    /// Gives the file as it is now, without a byte order mark. A file that cannot be read gives 0
    /// and a true HasFailed.
    int GetNextLine(SYS_String& line, bool forParsing) override;
    /// The name as it was given.
    SYS_String GetFileName() override;
    /// False, unless a derived class gives the file by lines.
    bool LineByLine() override;
    /// Null if there is no such file.
    MacroSource* Clone(char const* name) override;

    /// Whether the file could be opened and is small enough to be read as a whole.
    bool IsReadable();
    /// Whether the last request for text failed because the file could not be read.
    bool HasFailed() const { return m_Failed; }

protected:
    SFM_File m_File;

private:
    bool ensureOpen();
    int readWhole(SYS_String& text);

    SCC_Array<long> m_LineOffsets;
    bool m_Failed = false;
};

/// Takes recorded lines. Counted like a source.
class KEL_MCR_API MacroOutput : public tRefCounted<iRefCounted> {
public:
    MacroOutput() = default;
    ~MacroOutput() override;

    /// Back to the start: the next line is written over the first.
    virtual void Reset();
    /// Writes one line, which comes without its end; 0 if that failed. The recording goes on
    /// either way. May start and stop recordings itself.
    virtual int Record(char const* text) = 0;

protected:
    long m_WriteOffset = 0;
};

/// Carries the name of a file between the host's file dialog and recording. One for the process.
class KEL_MCR_API MacroFileNameStorage {
public:
    static MacroFileNameStorage& GetStorage();

    const SYS_String& GetFileName() const { return m_Name; }
    /// Stores the name and tells nobody.
    void SetFileName(char const* name) { m_Name = name; }
    /// Stores the name and tells the subscribers. Re-enters: the subscribers.
    void OnFileNameSetUp(char const* name);
    /// Tells the subscribers the empty name; the stored one stays. Re-enters: the subscribers.
    void OnFileNameCanceled();
    /// Owner: the caller keeps the node, which leaves by itself at its end.
    void Subscribe(SCC_EventNode<SYS_String>& node) { m_Event.AddTail(node); }
    /// Nothing for a node that has not subscribed here.
    void Unsubscribe(SCC_EventNode<SYS_String>& node);

private:
    MacroFileNameStorage() = default;

    SYS_String m_Name;
    SCC_Event<SYS_String> m_Event;
};

/// Recorded lines in a file.
class KEL_MCR_API MacroOutputFile : public MacroOutput {
public:
    /// Opens the file for writing; null makes an output without one. A file that cannot be opened
    /// takes no lines.
    explicit MacroOutputFile(char const* name);
    ~MacroOutputFile() override;

    /// The line is in the file when this returns 1. What a failed write has left there is written
    /// over by the next line.
    int Record(char const* text) override;

protected:
    /// Writes the line at the place where the file stands, and out of the buffer.
    bool writeNow(char const* text);

    SFM_File m_File;
};
