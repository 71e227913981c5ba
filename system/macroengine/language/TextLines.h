#pragma once

// The lines of a macro text as it stands, against the lines that the scanner counts: the end of a
// `rem` line counts twice.

#include <SYS_String.h>

#include <string_view>
#include <vector>

using namespace kel_ns;

class TextLines {
public:
    /// The text must outlive this.
    explicit TextLines(const SYS_String& text);

    /// The line of the text that has a number of the scanner's.
    int FromCounted(int line) const;
    /// The line with the byte of that offset.
    int FromOffset(std::size_t offset) const;
    /// Where a line begins.
    std::size_t GetStart(int line) const { return m_Starts[static_cast<std::size_t>(line)]; }
    /// A line without its line end.
    std::string_view GetLine(int line) const;
    /// The offset of the first token of a kind on a line, or of the first token there.
    std::size_t FindToken(int line, int token) const;
    /// The first string without its closing quote, which must be there: its offset, and the number
    /// that the scanner gives its line.
    int FindOpenString(std::size_t& offset) const;

private:
    std::string_view m_Text;
    std::vector<std::size_t> m_Starts; // of every line; never empty
    std::vector<int> m_Counted;        // the number that the scanner gives each; empty if the same
};
