#pragma once

#include <MacroSource.h>
#include <SYS_String.h>

#include <cstddef>
#include <vector>

/// The text of a source, cut into lines by the numbers that the parser gives them: in a text that
/// is given as a whole, a `rem` comment counts for two lines, the second of which is empty.
class SourceLines {
public:
    /// Reads all of the source, from its start. Raises: never of itself. Re-enters: the source.
    void Read(MacroSource& source);

    int GetCount() const { return static_cast<int>(m_Starts.size()); }
    const SYS_String& GetText() const { return m_Text; }
    /// The text of the lines from `first` up to, not including, `end`; empty beyond the last one.
    SYS_String GetLines(long first, long end) const;
    /// One line as the source gives it, with or without a line end.
    SYS_String GetLine(long line) const;

private:
    void cutAtLineEnds();
    void cutAtCountedLines();

    SYS_String m_Text;
    std::vector<std::size_t> m_Starts;
    bool m_AddsLineEnds = false; // the source gives bare lines
};
