#pragma once

// Macros that are no files, for the tests and the benchmarks.

#include <MacroSource.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

enum class Feed { Whole, LineByLine };

/// Macro text from memory, given as one piece or line by line.
class MemorySource : public MacroSource {
public:
    explicit MemorySource(std::string_view text, Feed feed = Feed::Whole, const char* fileName = "")
        : m_Feed(feed), m_Text(text), m_FileName(fileName) {
        for (std::size_t start = 0; start < text.size();) {
            const std::size_t end = std::min(text.find('\n', start), text.size());
            m_Lines.emplace_back(text.substr(start, end - start));
            start = end + 1;
        }
    }

    void Reset() override {
        SetPosition(0);
        SetNextPosition(0);
    }
    int GetNextLine(SYS_String& line, bool) override {
        if (m_Feed == Feed::Whole) {
            if (GetPosition() != 0)
                return 0;
            line = SYS_String(m_Text);
            SetPosition(1);
            return 1;
        }
        const long next = GetNextPosition();
        if (next < 0 || next >= static_cast<long>(m_Lines.size()))
            return 0;
        line = SYS_String(m_Lines[static_cast<std::size_t>(next)]);
        SetPosition(next);
        SetNextPosition(next + 1);
        return 1;
    }
    SYS_String GetFileName() override { return m_FileName; }
    bool LineByLine() override { return m_Feed == Feed::LineByLine; }
    MacroSource* Clone(char const*) override { return nullptr; }

private:
    Feed m_Feed;
    std::string m_Text;
    std::vector<std::string> m_Lines;
    SYS_String m_FileName;
};
