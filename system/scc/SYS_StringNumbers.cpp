// The conversions between SYS_String and numbers, and printf formatting.
#include <SYS_String.h>

#include <SYS_Locale.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <stdexcept>

namespace kel_ns {

namespace {

// What strtol reads: white space, a sign, a prefix that belongs to the base, digits. The magnitude
// sticks at the largest 64-bit value.
struct ParsedInteger {
    unsigned long long magnitude = 0;
    bool negative = false;
    const char* end = nullptr;
};

int digitValue(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    c = SYS_ToLower(c);
    if (c >= 'a' && c <= 'z')
        return c - 'a' + 10;
    return 36;
}

ParsedInteger parseInteger(const char* text, int base) {
    ParsedInteger result;
    result.end = text;
    if (base < 0 || base == 1 || base > 36)
        return result;
    const char* p = text;
    while (SYS_IsSpace(*p))
        ++p;
    if (*p == '+' || *p == '-')
        result.negative = *p++ == '-';
    bool hexPrefix = p[0] == '0' && (p[1] == 'x' || p[1] == 'X') && digitValue(p[2]) < 16;
    if ((base == 0 || base == 16) && hexPrefix) {
        base = 16;
        p += 2;
    } else if (base == 0) {
        base = *p == '0' ? 8 : 10;
    }
    const unsigned long long max = std::numeric_limits<unsigned long long>::max();
    const unsigned long long wideBase = static_cast<unsigned long long>(base);
    for (int digit = digitValue(*p); digit < base; digit = digitValue(*++p)) {
        auto wideDigit = static_cast<unsigned long long>(digit);
        bool fits = result.magnitude <= (max - wideDigit) / wideBase;
        result.magnitude = fits ? result.magnitude * wideBase + wideDigit : max;
        result.end = p + 1;
    }
    if (result.end == text)
        result.negative = false;
    return result;
}

template <class I> I saturateSigned(const ParsedInteger& parsed) {
    constexpr I largest = std::numeric_limits<I>::max();
    constexpr auto limit = static_cast<unsigned long long>(largest);
    if (parsed.negative)
        return parsed.magnitude > limit ? std::numeric_limits<I>::min()
                                        : static_cast<I>(-static_cast<I>(parsed.magnitude));
    return parsed.magnitude > limit ? largest : static_cast<I>(parsed.magnitude);
}

template <class I> I deliver(I value, const char* parsedEnd, I* out, const char** end) {
    if (out)
        *out = value;
    if (end)
        *end = parsedEnd;
    return value;
}

} // namespace

double SYS_String::Value(double* out, const char** end) const {
    char* parsedEnd = nullptr;
    double value = 0;
    {
        SYS_CLocale cLocale;
        value = std::strtod(c_str(), &parsedEnd);
    }
    return deliver(value, parsedEnd, out, end);
}

int SYS_String::Value(int* out, const char** end, int base) const {
    ParsedInteger parsed = parseInteger(c_str(), base);
    return deliver(saturateSigned<int>(parsed), parsed.end, out, end);
}

// A minus negates within 32 bits, as strtoul does; a magnitude that does not fit stays at the top.
unsigned SYS_String::Value(unsigned* out, const char** end, int base) const {
    ParsedInteger parsed = parseInteger(c_str(), base);
    constexpr unsigned largest = std::numeric_limits<unsigned>::max();
    unsigned value = largest;
    if (parsed.magnitude <= largest) {
        value = static_cast<unsigned>(parsed.magnitude);
        if (parsed.negative)
            value = 0u - value;
    }
    return deliver(value, parsed.end, out, end);
}

__int64 SYS_String::Value(__int64* out, const char** end, int base) const {
    ParsedInteger parsed = parseInteger(c_str(), base);
    return deliver(saturateSigned<__int64>(parsed), parsed.end, out, end);
}

SYS_String& SYS_String::operator<<(double value) {
    char buffer[64];
    auto result =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 6);
    return Append(buffer, static_cast<std::size_t>(result.ptr - buffer));
}

SYS_String& SYS_String::appendSigned(__int64 value) {
    char buffer[32];
    auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return Append(buffer, static_cast<std::size_t>(result.ptr - buffer));
}

SYS_String& SYS_String::Add(unsigned long long value, int base) {
    char buffer[72];
    if (base < 2 || base > 36)
        base = 10;
    auto result = std::to_chars(buffer, buffer + sizeof buffer, value, base);
    return Append(buffer, static_cast<std::size_t>(result.ptr - buffer));
}

SYS_String& SYS_String::Format(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    try {
        FormatV(format, arguments);
    } catch (...) {
        va_end(arguments);
        throw;
    }
    va_end(arguments);
    return *this;
}

SYS_String& SYS_String::FormatV(const char* format, va_list arguments) {
    char small[256];
    SYS_CLocale cLocale;
    va_list again;
    va_copy(again, arguments);
    int length = std::vsnprintf(small, sizeof small, format, arguments);
    SYS_String result;
    try {
        if (length < 0)
            throw std::length_error("string too long");
        if (static_cast<std::size_t>(length) < sizeof small) {
            result = SYS_String(small, static_cast<std::size_t>(length));
        } else {
            char* buffer = result.GetBuffer(static_cast<unsigned>(length));
            std::vsnprintf(buffer, static_cast<std::size_t>(length) + 1, format, again);
            result.ReleaseBuffer(length);
        }
    } catch (...) {
        va_end(again);
        throw;
    }
    va_end(again);
    Swap(result);
    return *this;
}

} // namespace kel_ns
