#include "ScriptText.h"

#include <algorithm>
#include <cctype>

namespace {

constexpr const char* kByteOrderMark = "\xEF\xBB\xBF";

std::string unchanged(const std::string& line) { return line; }

bool isWordCharacter(char character) {
    return std::isalnum(static_cast<unsigned char>(character)) || character == '_';
}

std::string withQuoteForRem(const std::string& line) {
    for (std::size_t i = 0; i < line.size() && line[i] != '\'';) {
        std::size_t end = i + 1;
        if (line[i] == '"') {
            end = std::min(line.find('"', end), line.size() - 1) + 1;
        } else if (isWordCharacter(line[i])) {
            while (end < line.size() && isWordCharacter(line[end]))
                ++end;
            const bool isRem = end - i == 3 && std::tolower(line[i]) == 'r' &&
                               std::tolower(line[i + 1]) == 'e' && std::tolower(line[i + 2]) == 'm';
            if (isRem)
                return line.substr(0, i) + "'" + line.substr(end);
        }
        i = end;
    }
    return line;
}

} // namespace

ScriptText::ScriptText(const std::string& text) {
    if (text.starts_with(kByteOrderMark))
        m_Mark = kByteOrderMark;
    for (std::size_t start = m_Mark.size(); start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        m_Lines.push_back(text.substr(start, end - start));
        m_EndsOpen = end == text.size();
        start = end + 1;
    }
    const auto endsWithReturn = [](const std::string& line) { return line.ends_with('\r'); };
    const auto complete = m_Lines.end() - (m_EndsOpen ? 1 : 0);
    if (complete == m_Lines.begin() || !std::all_of(m_Lines.begin(), complete, endsWithReturn))
        return;
    m_LineEnd = "\r\n";
    for (auto line = m_Lines.begin(); line != complete; ++line)
        line->pop_back();
}

const std::string& ScriptText::GetLine(long line) const {
    static const std::string none;
    return HasLine(line) ? m_Lines[static_cast<std::size_t>(line)] : none;
}

void ScriptText::SetLine(int line, const std::string& text) {
    m_Lines[static_cast<std::size_t>(line)] = text;
    m_Changed = true;
}

void ScriptText::InsertLine(int line, const std::string& text) {
    if (line == GetCount())
        m_EndsOpen = false;
    m_Lines.insert(m_Lines.begin() + line, text);
    m_Changed = true;
}

void ScriptText::RemoveLine(int line) {
    m_Lines.erase(m_Lines.begin() + line);
    m_Changed = true;
}

std::string ScriptText::Join() const { return join(&unchanged); }

std::string ScriptText::JoinForEngine() const { return join(&withQuoteForRem); }

std::string ScriptText::join(std::string (*convert)(const std::string& line)) const {
    std::string text;
    for (const std::string& line : m_Lines)
        text += convert(line) + m_LineEnd;
    if (m_EndsOpen && !m_Lines.empty())
        text.resize(text.size() - m_LineEnd.size());
    return text;
}
