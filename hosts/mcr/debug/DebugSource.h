#pragma once

#include <MacroSource.h>

#include "ScriptFiles.h"

/// What the sources of a debugged macro tell.
class SourceEvents {
public:
    /// A statement is about to run; `line` counts from 0. True stops the run there.
    virtual bool OnStatement(const ScriptFile& file, long line) = 0;
    /// A statement failed, and nothing is unwound yet. True keeps the macro alive.
    virtual bool OnFailure(MacroException& error) = 0;
    /// The macro executes another file; null if it cannot be read.
    virtual ScriptFile* OnOpen(const std::string& path) = 0;

protected:
    ~SourceEvents() = default;
};

/// Gives the engine the text of a file as it is edited, and hands on what the run asks. The file
/// and the events must outlive it.
class DebugSource : public MacroSource {
public:
    DebugSource(ScriptFile& file, SourceEvents& events) : m_File(file), m_Events(events) {}

    ScriptFile& GetFile() const { return m_File; }

    void OnPause() override {} // who waits is the idle hook
    void Reset() override;
    int GetNextLine(SYS_String& line, bool forParsing) override;
    SYS_String GetFileName() override { return SYS_String(m_File.path); }
    bool LineByLine() override { return false; }
    bool IsBreakPoint(long line) override { return m_Events.OnStatement(m_File, line); }
    bool BreakOnError(MacroException& error) override { return m_Events.OnFailure(error); }
    MacroSource* Clone(char const* name) override;

private:
    ScriptFile& m_File;
    SourceEvents& m_Events;
    bool m_Given = false;
};
