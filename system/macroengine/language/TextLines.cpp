#include "language/TextLines.h"

#include <algorithm>
#include <cstring>

#include "language/Scanner.h"
#include "language/Tokens.h"

namespace {

// Without the word there is nothing that counts twice, and no need to scan.
bool mayHoldRem(std::string_view text) {
    for (std::size_t at = 0; (at = text.find_first_of("mM", at)) != std::string_view::npos; ++at) {
        if (at >= 2 && SYS_ToLower(text[at - 1]) == 'e' && SYS_ToLower(text[at - 2]) == 'r')
            return true;
    }
    return false;
}

std::vector<int> countLines(const char* text, std::size_t lines) {
    std::vector<int> counted;
    counted.reserve(lines);
    MacroScanner scanner;
    scanner.SetText(&text);
    counted.push_back(0);
    for (;;) {
        const int token = scanner.ScanToken();
        scanner.SetLastToken(token);
        scanner.ClearCommentText();
        if (token == tokNewLine && counted.size() < lines)
            counted.push_back(scanner.GetCurrentLine());
        if (token == tokEnd)
            return counted;
    }
}

} // namespace

TextLines::TextLines(const SYS_String& text) : m_Text(text.c_str()) {
    m_Starts.push_back(0);
    for (std::size_t at = 0; (at = m_Text.find('\n', at)) != std::string_view::npos;)
        m_Starts.push_back(++at);
    if (mayHoldRem(m_Text))
        m_Counted = countLines(text.c_str(), m_Starts.size());
}

int TextLines::FromCounted(int line) const {
    if (!m_Counted.empty()) {
        const auto next = std::upper_bound(m_Counted.begin(), m_Counted.end(), line);
        return static_cast<int>(next - m_Counted.begin()) - 1;
    }
    return std::clamp(line, 0, static_cast<int>(m_Starts.size()) - 1);
}

int TextLines::FromOffset(std::size_t offset) const {
    const auto next = std::upper_bound(m_Starts.begin(), m_Starts.end(), offset);
    return static_cast<int>(next - m_Starts.begin()) - 1;
}

std::string_view TextLines::GetLine(int line) const {
    const std::size_t start = GetStart(line);
    std::string_view text = m_Text.substr(start, m_Text.find('\n', start) - start);
    while (!text.empty() && text.back() == '\r')
        text.remove_suffix(1);
    return text;
}

std::size_t TextLines::FindToken(int line, int token) const {
    const SYS_String text(GetLine(line));
    const char* cursor = text.c_str();
    MacroScanner scanner;
    scanner.SetText(&cursor);
    std::size_t first = text.View().size();
    for (int found; (found = scanner.ScanToken()) != tokEnd && found != tokNewLine;) {
        scanner.SetLastToken(found);
        const auto at = static_cast<std::size_t>(scanner.GetState().tokenStart - text.c_str());
        first = std::min(first, at);
        if (found == token)
            return GetStart(line) + at;
    }
    return GetStart(line) + first;
}

int TextLines::FindOpenString(std::size_t& offset) const {
    const char* cursor = m_Text.data();
    MacroScanner scanner;
    scanner.SetText(&cursor);
    for (int found; (found = scanner.ScanToken()) != tokUnterminated && found != tokEnd;) {
        scanner.SetLastToken(found);
        scanner.ClearCommentText();
    }
    offset = static_cast<std::size_t>(scanner.GetState().tokenStart - m_Text.data());
    return scanner.GetTokenLine();
}
