#pragma once

// Parses texts in tests.

#include <MacroSource.h>
#include <SCL_Pointer.h>
#include <UI_MacroProcessor.h>

#include <string>
#include <utility>

#include "interpreter/TreeDump.h"

/// A source over a text in memory: as a whole, or line by line as a host's editor gives it.
class TextSource : public MacroSource {
public:
    TextSource(std::string text, bool lineByLine, SYS_String name = "test.mcr")
        : m_Text(std::move(text)), m_Name(std::move(name)), m_LineByLine(lineByLine) {}

    void Reset() override {
        SetPosition(0);
        SetNextPosition(0);
        m_Offset = 0;
    }
    int GetNextLine(SYS_String& line, bool) override {
        if (!m_LineByLine) {
            if (GetPosition() != 0)
                return 0;
            line = SYS_String(m_Text.data(), m_Text.size());
            SetPosition(1);
            return 1;
        }
        if (GetNextPosition() == 0)
            m_Offset = 0;
        if (m_Offset >= m_Text.size())
            return 0;
        SetPosition(GetNextPosition());
        SetNextPosition(GetNextPosition() + 1);
        std::size_t end = m_Text.find('\n', m_Offset);
        end = end == std::string::npos ? m_Text.size() : end + 1;
        line = SYS_String(m_Text.data() + m_Offset, end - m_Offset);
        m_Offset = end;
        return 1;
    }
    SYS_String GetFileName() override { return m_Name; }
    bool LineByLine() override { return m_LineByLine; }
    MacroSource* Clone(char const*) override { return nullptr; }

private:
    std::string m_Text;
    SYS_String m_Name;
    std::size_t m_Offset = 0;
    bool m_LineByLine;
};

/// What a parse came to: the tree as text, or the error's text.
struct Parsed {
    bool ok = false;
    std::string tree;
    std::string error; // without place
    long line = -1;    // zero-based
    std::string full;  // the error as the host sees it
};

inline Parsed ParseText(const std::string& text, bool lineByLine = false, bool dump = true) {
    MacroParser processor(true);
    processor.SetSource(new TextSource(text, lineByLine));
    processor.Reset();
    Parsed result;
    try {
        result.ok = processor.Parse();
        if (result.ok && dump)
            DumpTree(processor.GetTree(), result.tree);
        if (result.ok)
            return result;
    } catch (const MacroException& error) {
        result.full = error.GetText().c_str();
    }
    result.error = processor.GetLastErrorText().c_str();
    result.line = processor.GetLastErrorLine();
    return result;
}
