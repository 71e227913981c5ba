#include "CommandLine.h"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace {

constexpr const char* kBlanks = " \t";

bool isNameCharacter(unsigned char character) {
    return std::isalnum(character) || character == '_';
}

} // namespace

CommandLine::CommandLine(const std::string& line) : m_Rest(Trimmed(line)) {}

std::string CommandLine::TakeWord() {
    const std::size_t end = std::min(m_Rest.find_first_of(kBlanks), m_Rest.size());
    const std::string word = m_Rest.substr(0, end);
    m_Rest = Trimmed(m_Rest.substr(end));
    return word;
}

std::string Trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string::npos)
        return "";
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool ParseNumber(const std::string& text, int& number) {
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stop == end && number >= 0;
}

bool IsIdentifier(const std::string& text) {
    return !text.empty() && !std::isdigit(static_cast<unsigned char>(text.front())) &&
           std::all_of(text.begin(), text.end(), isNameCharacter);
}
