#pragma once

// Macro text that is edited while the engine uses it.

#include "DebugFixture.h"

#include <string>
#include <utility>

inline Lines splitLines(std::string_view text) {
    Lines lines;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        lines.emplace_back(text.substr(start, end - start));
        start = end + 1;
    }
    return lines;
}

using Change = MacroParser::LineChange;
using Changes = SCL_Vector<Change>;

/// Text that an editor changes while the engine uses it, with the list of what it has changed.
class EditedSource : public MacroSource {
public:
    EditedSource(Lines text, Feed feed) : lines(std::move(text)), m_Feed(feed) {}

    void Reset() override {
        SetPosition(0);
        SetNextPosition(0);
        m_Given = false;
    }
    int GetNextLine(SYS_String& line, bool) override {
        if (m_Feed == Feed::Whole) {
            if (std::exchange(m_Given, true))
                return 0;
            line = SYS_String(whole());
            return 1;
        }
        const long next = GetNextPosition();
        if (next < 0 || next >= static_cast<long>(lines.size()))
            return 0;
        line = SYS_String(lines[static_cast<std::size_t>(next)]);
        SetPosition(next);
        SetNextPosition(next + 1);
        return 1;
    }
    SYS_String GetFileName() override { return "edited"; }
    bool LineByLine() override { return m_Feed == Feed::LineByLine; }
    MacroSource* Clone(char const*) override { return nullptr; }

    void Insert(int line, const std::string& text) {
        lines.insert(lines.begin() + line, text);
        changes.push_back({0, line});
    }
    void Remove(int line) {
        lines.erase(lines.begin() + line);
        changes.push_back({1, line});
    }
    void Change(int line, const std::string& text) {
        lines[static_cast<std::size_t>(line)] = text;
        changes.push_back({2, line});
    }
    std::string whole() const {
        std::string text;
        for (const std::string& line : lines)
            text += line + "\n";
        return text;
    }

    Lines lines;
    Changes changes;

private:
    const Feed m_Feed;
    bool m_Given = false;
};
