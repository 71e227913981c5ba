#include "WideText.h"

#include <SYS_Unicode.h>

namespace scripting {

namespace {

unsigned char byteAt(std::string_view bytes, std::size_t place) {
    return static_cast<unsigned char>(bytes[place]);
}

bool isFirstOfPair(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }

/// How many bytes at the end begin a character without ending it.
std::size_t unfinished(std::string_view text) {
    for (std::size_t back = 1; back <= 3 && back <= text.size(); ++back) {
        const unsigned char byte = byteAt(text, text.size() - back);
        if (byte < 0x80)
            return 0;
        if (byte >= 0xC0) {
            const std::size_t length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : 2;
            return length > back ? back : 0;
        }
    }
    return 0;
}

} // namespace

std::string WideReader::Decode(std::string_view bytes, bool isLast) {
    m_Rest.append(bytes);
    if (isLast && m_Rest.size() % 2 != 0)
        m_Rest += '\0';
    std::u16string units;
    units.reserve(m_Rest.size() / 2);
    for (std::size_t place = 0; place + 1 < m_Rest.size(); place += 2)
        units += static_cast<char16_t>(byteAt(m_Rest, place) | byteAt(m_Rest, place + 1) << 8);
    if (!isLast && !units.empty() && isFirstOfPair(units.back()))
        units.pop_back();
    m_Rest.erase(0, 2 * units.size());
    const bool hasMark = m_IsAtStart && !units.empty() && units.front() == 0xFEFF;
    m_IsAtStart = m_IsAtStart && units.empty();
    const std::u16string_view text(units);
    return std::string(kel_ns::SYS_FromUtf16(hasMark ? text.substr(1) : text).View());
}

std::string WideWriter::Encode(std::string_view text, bool isLast) {
    m_Rest.append(text);
    const std::size_t whole = m_Rest.size() - (isLast ? 0 : unfinished(m_Rest));
    std::string bytes;
    bytes.reserve(2 * whole);
    for (const char16_t unit : kel_ns::SYS_ToUtf16(std::string_view(m_Rest).substr(0, whole))) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    m_Rest.erase(0, whole);
    return bytes;
}

} // namespace scripting
