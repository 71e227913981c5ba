#pragma once

#include <string>
#include <vector>

/// The lines of a macro, which can be edited. Lines count from 0.
class ScriptText {
public:
    ScriptText() = default;
    explicit ScriptText(const std::string& text);

    int GetCount() const { return static_cast<int>(m_Lines.size()); }
    bool HasLine(long line) const { return line >= 0 && line < GetCount(); }
    /// The line without its end; empty for one that does not exist.
    const std::string& GetLine(long line) const;
    void SetLine(int line, const std::string& text);
    /// The new line gets this number; the count appends it.
    void InsertLine(int line, const std::string& text);
    void RemoveLine(int line);

    /// Whether the lines differ from what was read or written last.
    bool IsChanged() const { return m_Changed; }
    void SetUnchanged() { m_Changed = false; }
    /// The whole text, each line with the end that the text had.
    std::string Join() const;
    /// The same for the engine, which counts a line twice that a rem comment ends: such a comment
    /// begins with a quote here, so that its line numbers are those of the text.
    std::string JoinForEngine() const;
    /// The same as it stands in a file, behind the byte order mark if there was one.
    std::string JoinForFile() const { return m_Mark + Join(); }

private:
    std::string join(std::string (*convert)(const std::string& line)) const;

    std::vector<std::string> m_Lines;
    std::string m_Mark;
    std::string m_LineEnd = "\n";
    bool m_EndsOpen = false; // the last line has no end
    bool m_Changed = false;
};
