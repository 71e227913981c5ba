// Numbers as text for readers, by the user's conventions.

#include <Platform.h>
#include <UI_MacroProcessor.h>

#include <charconv>
#include <cmath>
#include <string>
#include <string_view>

#include "runtime/Arguments.h"
#include "runtime/FunctionTable.h"
#include "values/NumberText.h"

namespace {

constexpr int kMostDigits = 4096;

/// The host's value, else the platform's; false if neither knows it.
bool localeValue(PlatformLocaleValue id, SYS_String& value) {
    const auto& hook = MacroSupport::GetHostHooks().locale;
    return (hook && hook(id, value)) || GetPlatform().GetLocaleValue(id, value);
}

int localeNumber(PlatformLocaleValue id) {
    SYS_String value;
    return localeValue(id, value) ? static_cast<int>(MacroIntegerValue(value)) : 0;
}

/// The places of the arguments of both functions.
enum Place { plNumber, plDigits, plLeadingZero, plParentheses, plGrouping };

struct Arguments {
    int count;
    const UI_MacroVariant* values;

    int Digits() const {
        if (IsGiven(count, values, plDigits)) {
            const int digits = static_cast<int>(values[plDigits]);
            if (digits >= 0)
                return digits;
        }
        const int digits = localeNumber(PlatformLocaleDigits);
        return digits < 0 ? 0 : digits;
    }
    bool LeadingZero() const {
        bool on = false;
        return decides(plLeadingZero, on) ? on : localeNumber(PlatformLocaleLeadingZero) != 0;
    }
    bool Parentheses() const {
        bool on = false;
        return decides(plParentheses, on) ? on : localeNumber(PlatformLocaleNegativeNumber) == 0;
    }
    bool Grouping() const {
        bool on = false;
        if (decides(plGrouping, on))
            return on;
        SYS_String sizes;
        return !localeValue(PlatformLocaleGrouping, sizes) || sizes[0] == '3';
    }

private:
    /// True if the argument is yes or no; any other number leaves it to the locale.
    bool decides(Place place, bool& on) const {
        if (!IsGiven(count, values, place))
            return false;
        const int choice = static_cast<int>(values[place]);
        on = choice == -1;
        return choice == -1 || choice == 0;
    }
};

std::string fixedText(double value, int digits) {
    constexpr int kMostWholeDigits = 310;
    std::string text(static_cast<std::size_t>(kMostWholeDigits + 2 + digits), '\0');
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                   std::chars_format::fixed, digits);
    text.resize(static_cast<std::size_t>(end.ptr - text.data()));
    return text;
}

/// Sets separators between groups of three, from the right.
SYS_String grouped(std::string_view whole) {
    SYS_String separator;
    localeValue(PlatformLocaleThousands, separator);
    SYS_String text(whole);
    text.MakeReverse();
    for (int at = 3; at < text.GetLength() && text.GetLength() >= 4;
         at += separator.GetLength() + 3)
        text.Insert(at, separator);
    return text.MakeReverse();
}

UI_MacroVariant formatted(double x, const Arguments& arguments, const char* suffix) {
    const int digits = arguments.Digits();
    const bool parentheses = arguments.Parentheses() && x < 0;
    if (digits > kMostDigits)
        return wrongArguments();
    const std::string text = fixedText(std::fabs(x), digits);
    const std::size_t point = text.find('.');
    std::string_view rest(text);

    SYS_String result;
    if (parentheses)
        result += '(';
    if (x < 0)
        result += '-';
    if (std::fabs(x) < 1.0) {
        if (arguments.LeadingZero())
            result += '0';
        if (point != std::string::npos)
            rest.remove_prefix(point);
    } else {
        const std::string_view whole = rest.substr(0, point);
        rest.remove_prefix(whole.size());
        if (arguments.Grouping())
            result += grouped(whole);
        else
            result.Append(whole);
    }
    result.Append(rest);
    if (parentheses)
        result += ')';
    return result += suffix;
}

} // namespace

UI_MacroVariant MacroFormatNumber(int argc, UI_MacroVariant* argv) {
    if (argc < 1 || argc > 5 || !argv)
        return wrongArguments();
    return formatted(static_cast<double>(argv[plNumber]), {argc, argv}, "");
}

UI_MacroVariant MacroFormatPercent(int argc, UI_MacroVariant* argv) {
    if (argc < 1 || argc > 5 || !argv)
        return wrongArguments();
    return formatted(static_cast<double>(argv[plNumber]) * 100.0, {argc, argv}, "%");
}
