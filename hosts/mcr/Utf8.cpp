#include "Utf8.h"

std::size_t Utf8Length(std::string_view text) {
    if (text.empty())
        return 0;
    const auto first = static_cast<unsigned char>(text[0]);
    if (first < 0x80)
        return 1;
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || text.size() < length)
        return 0;
    unsigned value = first & (0xFFu >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0) != 0x80)
            return 0;
        value = value << 6 | (byte & 0x3Fu);
    }
    constexpr unsigned smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = value >= 0xD800 && value < 0xE000;
    return value >= smallest[length] && value <= 0x10FFFF && !surrogate ? length : 0;
}

std::size_t ControlLength(std::string_view text) {
    if (text.empty())
        return 0;
    const auto first = static_cast<unsigned char>(text[0]);
    if (first < ' ' || first == 0x7F)
        return 1;
    return first == 0xC2 && text.size() > 1 && static_cast<unsigned char>(text[1]) < 0xA0 &&
                   static_cast<unsigned char>(text[1]) >= 0x80
               ? 2
               : 0;
}

std::string WithoutControls(std::string_view text) {
    std::string plain;
    while (!text.empty()) {
        const std::size_t control = ControlLength(text);
        plain += control > 0 ? ' ' : text[0];
        text.remove_prefix(control > 0 ? control : 1);
    }
    return plain;
}
