#include <SYS_Unicode.h>

namespace kel_ns {

namespace {

constexpr char32_t ByteEscape = 0xDC00;

bool isContinuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

bool isHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }

bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

// Takes one code point off the front, or one byte as its escape.
char32_t decodeNext(std::string_view& bytes) {
    auto at = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned char lead = at(0);
    std::size_t length = 1;
    char32_t smallest = 0;
    char32_t point = lead;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
        smallest = 0x80;
        point = lead & 0x1F;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        smallest = 0x800;
        point = lead & 0x0F;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        smallest = 0x10000;
        point = lead & 0x07;
    }
    bool valid = length > 1 ? bytes.size() >= length : lead < 0x80;
    for (std::size_t i = 1; valid && i < length; ++i) {
        valid = isContinuation(at(i));
        point = point << 6 | (at(i) & 0x3F);
    }
    if (!valid || point < smallest || point > 0x10FFFF || (point >= 0xD800 && point <= 0xDFFF)) {
        length = 1;
        point = ByteEscape + lead;
    }
    bytes.remove_prefix(length);
    return point;
}

void encode(char32_t point, SYS_String& out) {
    auto put = [&](char32_t byte) { out.Append(static_cast<char>(byte)); };
    if (point < 0x80) {
        put(point);
    } else if (point >= ByteEscape + 0x80 && point <= ByteEscape + 0xFF) {
        put(point - ByteEscape);
    } else if (point < 0x800) {
        put(0xC0 | point >> 6);
        put(0x80 | (point & 0x3F));
    } else if (point < 0x10000) {
        put(0xE0 | point >> 12);
        put(0x80 | (point >> 6 & 0x3F));
        put(0x80 | (point & 0x3F));
    } else {
        put(0xF0 | point >> 18);
        put(0x80 | (point >> 12 & 0x3F));
        put(0x80 | (point >> 6 & 0x3F));
        put(0x80 | (point & 0x3F));
    }
}

// For units of 16 bits, pairs of surrogates; a unit of 32 bits is a code point already.
template <class Char> SYS_String encodeAll(std::basic_string_view<Char> text) {
    SYS_String result;
    result.Reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto point = static_cast<char32_t>(text[i]);
        if (isHighSurrogate(point) && i + 1 < text.size() &&
            isLowSurrogate(static_cast<char32_t>(text[i + 1]))) {
            char32_t low = static_cast<char32_t>(text[++i]);
            point = 0x10000 + ((point - 0xD800) << 10) + (low - 0xDC00);
        }
        encode(point > 0x10FFFF ? U'\xFFFD' : point, result);
    }
    return result;
}

template <class Char> std::basic_string<Char> decodeAll(std::string_view bytes) {
    std::basic_string<Char> result;
    result.reserve(bytes.size());
    while (!bytes.empty()) {
        char32_t point = decodeNext(bytes);
        if (sizeof(Char) == 2 && point >= 0x10000) {
            point -= 0x10000;
            result += static_cast<Char>(0xD800 + (point >> 10));
            result += static_cast<Char>(0xDC00 + (point & 0x3FF));
        } else {
            result += static_cast<Char>(point);
        }
    }
    return result;
}

} // namespace

std::u16string SYS_ToUtf16(std::string_view bytes) { return decodeAll<char16_t>(bytes); }

SYS_String SYS_FromUtf16(std::u16string_view text) { return encodeAll(text); }

std::wstring SYS_ToWide(std::string_view bytes) { return decodeAll<wchar_t>(bytes); }

SYS_String SYS_FromWide(std::wstring_view text) { return encodeAll(text); }

} // namespace kel_ns
