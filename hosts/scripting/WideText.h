#pragma once

#include <string>
#include <string_view>

namespace scripting {

// Text files in units of 16 bits, the low byte first, as they come and go in pieces.

/// What such a file begins with.
inline constexpr std::string_view kWideMark = "\xFF\xFE";

class WideReader {
public:
    /// The text of the file's next bytes, without the mark. What may go on in the piece behind
    /// waits for it.
    std::string Decode(std::string_view bytes, bool isLast);

private:
    std::string m_Rest;
    bool m_IsAtStart = true;
};

class WideWriter {
public:
    /// The bytes for the next piece of text, without a mark. A character that the piece cuts off
    /// waits for the one behind.
    std::string Encode(std::string_view text, bool isLast);

private:
    std::string m_Rest;
};

} // namespace scripting
