#include "values/NumberText.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace {

SYS_String textOf(int value) {
    char buffer[16];
    std::to_chars_result result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return SYS_String(buffer, static_cast<std::size_t>(result.ptr - buffer));
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }

} // namespace

SYS_String MacroIntegerText(__int64 value) { return textOf(static_cast<int>(value)); }

SYS_String MacroRealText(double value) {
    // Whole numbers of up to six digits need no rounding.
    if (value > -1e6 && value < 1e6) {
        int whole = static_cast<int>(value);
        if (whole == value && (whole != 0 || !std::signbit(value)))
            return textOf(whole);
    }
    char buffer[32];
    std::to_chars_result result =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 6);
    return SYS_String(buffer, static_cast<std::size_t>(result.ptr - buffer));
}

double MacroRealValue(const SYS_String& text) {
    const char* at = text.c_str();
    const char* end = at + text.GetLength();
    while (SYS_IsSpace(*at))
        ++at;
    bool negative = *at == '-';
    if (negative || *at == '+')
        ++at;
    // Only plain decimal numbers in range: the library knows the other forms.
    bool isHex = at[0] == '0' && (at[1] == 'x' || at[1] == 'X');
    if (isHex || !(isDigit(*at) || (*at == '.' && isDigit(at[1]))))
        return text.Value(static_cast<double*>(nullptr));
    double value = 0;
    if (std::from_chars(at, end, value).ec != std::errc())
        return text.Value(static_cast<double*>(nullptr));
    return negative ? -value : value;
}

__int64 MacroIntegerValue(const SYS_String& text) { return text.Value(static_cast<int*>(nullptr)); }

__int64 MacroTruncateReal(double value) {
    constexpr double limit = 9223372036854775808.0;
    if (value >= -limit && value < limit)
        return static_cast<__int64>(value);
    return std::numeric_limits<__int64>::min();
}

__int64 MacroRoundReal(double value) {
    return MacroTruncateReal(value > 0 ? value + 0.5 : value - 0.5);
}
