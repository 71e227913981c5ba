#include "Values.h"

#include "Figure.h"
#include "Refuse.h"

#include <charconv>
#include <cmath>
#include <system_error>

namespace {

constexpr double kLargest = 1e6;
constexpr int kWhite = 0xFFFFFF;

[[noreturn]] void refuse(const char* what, const std::string& rule) {
    Refuse(std::string(what) + " must be " + rule);
}

/// What a value reads as; null for an omitted one, Null and the like.
const UI_MacroVariant* valueOf(const UI_MacroVariant& value) {
    const UI_MacroVariant* read = value.GetRVal();
    return read && read->GetType() != vvtReference && read->GetType() != vvtMissing ? read
                                                                                    : nullptr;
}

bool readNumber(std::string_view text, double& number) {
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

double numberOf(const UI_MacroVariant& value, const char* what, const char* rule = "a number") {
    const UI_MacroVariant* read = valueOf(value);
    double number = 0;
    bool isNumber = false;
    if (read && (read->GetType() == vvtInteger || read->GetType() == vvtDouble)) {
        number = static_cast<double>(*read);
        isNumber = true;
    } else if (read && read->GetType() == vvtString) {
        isNumber = readNumber(read->GetStringVal().View(), number);
    }
    if (!isNumber || std::isnan(number))
        refuse(what, rule);
    return number;
}

} // namespace

double ToGrid(double value) { return std::round(value * 100) / 100 + 0.0; }

double ToNumber(const UI_MacroVariant& value, const char* what) {
    const double number = numberOf(value, what);
    if (std::abs(number) > kLargest)
        refuse(what, "between -1000000 and 1000000");
    return ToGrid(number);
}

double ToSize(const UI_MacroVariant& value, const char* what) {
    const double size = ToNumber(value, what);
    if (size <= 0)
        refuse(what, "above 0");
    return size;
}

int ToWhole(const UI_MacroVariant& value, const char* what, int least, int most) {
    const double number = numberOf(value, what);
    if (number != std::floor(number) || number < least || number > most)
        refuse(what,
               "a whole number from " + std::to_string(least) + " to " + std::to_string(most));
    return static_cast<int>(number);
}

int ToColor(const UI_MacroVariant& value, const char* what) {
    constexpr const char* kRule = "a colour, such as vbColorRed or Rgb(255, 0, 0), or vbNoColor";
    const double number = numberOf(value, what, kRule);
    if (number != std::floor(number) || number < kNoColor || number > kWhite)
        refuse(what, kRule);
    return static_cast<int>(number);
}

bool ToFlag(const UI_MacroVariant& value, const char* what) {
    const UI_MacroVariant* read = valueOf(value);
    if (!read || (read->GetType() != vvtBoolean && read->GetType() != vvtInteger))
        refuse(what, "True or False");
    return static_cast<bool>(*read);
}

std::string ToText(const UI_MacroVariant& value, const char* what) {
    const UI_MacroVariant* read = valueOf(value);
    if (!read || read->IsMacroEval() || read->GetType() == vvtArray || read->GetType() == vvtObject)
        refuse(what, "a text");
    return std::string(static_cast<SYS_String>(*read).View());
}

std::string ToAlign(const UI_MacroVariant& value) {
    const std::string align = ToText(value, "Align");
    if (align != "left" && align != "center" && align != "right")
        refuse("Align", "\"left\", \"center\" or \"right\"");
    return align;
}

bool IsGiven(int argc, const UI_MacroVariant* args, int index) {
    return index < argc && args[index].GetType() != vvtMissing;
}

UI_MacroVariant FromText(const std::string& text) { return SYS_String(std::string_view(text)); }

std::string NumberText(double value) {
    char buffer[400]; // the longest finite number has 309 digits in front of the point
    const auto [end, error] =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed);
    return error == std::errc() ? std::string(buffer, end) : std::string("0");
}

// Bytes that would break the line stand as Chr calls between the quoted pieces.
std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    for (char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (code < 32 || code == 127)
            quoted += "\" & Chr(" + std::to_string(code) + ") & \"";
        else
            quoted += c == '"' ? "\"\"" : std::string(1, c);
    }
    return quoted + "\"";
}
