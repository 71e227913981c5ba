#pragma once

#include <MacroSource.h>

#include "Trace.h"

/// A macro file that notes the open frames when a statement fails. The trace must outlive it.
class HostSource : public MacroSourceFile {
public:
    HostSource(const char* path, Trace& trace) : MacroSourceFile(path), m_Trace(trace) {}

    MacroSource* Clone(char const* name) override;
    bool BreakOnError(MacroException& error) override;

private:
    Trace& m_Trace;
};

/// A macro that is already in memory, such as standard input. The name stands in messages.
class TextSource : public MacroSource {
public:
    TextSource(const SYS_String& text, const char* name, Trace& trace)
        : m_Text(text), m_Name(name), m_Trace(trace) {}

    void Reset() override;
    int GetNextLine(SYS_String& line, bool forParsing) override;
    SYS_String GetFileName() override { return m_Name; }
    bool LineByLine() override { return false; }
    MacroSource* Clone(char const* name) override;
    bool BreakOnError(MacroException& error) override;

private:
    const SYS_String m_Text;
    const SYS_String m_Name;
    Trace& m_Trace;
    bool m_Given = false;
};
