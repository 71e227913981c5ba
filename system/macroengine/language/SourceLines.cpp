#include "language/SourceLines.h"

#include <cstring>

#include "language/Scanner.h"
#include "language/Tokens.h"

namespace {

bool startsRem(const char* p) {
    return SYS_ToLower(p[0]) == 'r' && SYS_ToLower(p[1]) == 'e' && SYS_ToLower(p[2]) == 'm';
}

bool mayHoldRem(const char* text) {
    for (const char* p = text; *p; ++p)
        if (startsRem(p))
            return true;
    return false;
}

/// Adds where the lines behind `cursor` begin. The end bounds each search.
void addLineStarts(std::vector<std::size_t>& starts, const SYS_String& text, const char* cursor) {
    const char* const begin = text.c_str();
    const char* const end = begin + text.GetLength();
    const auto next = [end](const char* p) {
        return static_cast<const char*>(std::memchr(p, '\n', static_cast<std::size_t>(end - p)));
    };
    for (const char* p = next(cursor); p; p = next(p + 1))
        starts.push_back(static_cast<std::size_t>(p + 1 - begin));
}

} // namespace

void SourceLines::Read(MacroSource& source) {
    m_Text.Clear();
    source.Reset();
    source.SetPosition(0);
    source.SetNextPosition(0);
    const bool byLines = source.LineByLine();
    SYS_String piece;
    while (source.GetNextLine(piece, true)) {
        m_Text += piece.c_str(); // a NUL ends a text
        if (byLines && !piece.View().ends_with('\n')) {
            m_Text += "\n";
            m_AddsLineEnds = true;
        }
    }
    if (!byLines && mayHoldRem(m_Text))
        cutAtCountedLines();
    else
        cutAtLineEnds();
}

SYS_String SourceLines::GetLines(long first, long end) const {
    const auto size = static_cast<std::size_t>(m_Text.GetLength());
    const auto startOf = [&](long line) {
        const auto i = static_cast<std::size_t>(line);
        return i < m_Starts.size() ? m_Starts[i] : size;
    };
    const std::size_t begin = startOf(first);
    return SYS_String(m_Text.View().substr(begin, startOf(end) - begin));
}

SYS_String SourceLines::GetLine(long line) const {
    SYS_String text = GetLines(line, line + 1);
    return m_AddsLineEnds && text.View().ends_with('\n')
               ? SYS_String(text.View().substr(0, text.View().size() - 1))
               : text;
}

void SourceLines::cutAtLineEnds() {
    m_Starts.assign(1, 0);
    addLineStarts(m_Starts, m_Text, m_Text.c_str());
}

void SourceLines::cutAtCountedLines() {
    m_Starts.assign(1, 0);
    const char* const text = m_Text.c_str();
    const char* cursor = text;
    MacroScanner scanner;
    scanner.SetText(&cursor);
    for (int token = tokNewLine; token > 0;) {
        token = scanner.ScanToken();
        scanner.SetLastToken(token);
        const auto counted = static_cast<std::size_t>(scanner.GetCurrentLine());
        while (m_Starts.size() <= counted)
            m_Starts.push_back(static_cast<std::size_t>(cursor - text));
    }
    addLineStarts(m_Starts, m_Text, cursor);
}
