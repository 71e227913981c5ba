#pragma once

#include <string>

/// A line of input, taken word by word from its front.
class CommandLine {
public:
    explicit CommandLine(const std::string& line);

    bool IsEmpty() const { return m_Rest.empty(); }
    /// What has not been taken, without blanks in front and behind.
    const std::string& GetRest() const { return m_Rest; }
    /// The next word; the blanks behind it go as well.
    std::string TakeWord();

private:
    std::string m_Rest;
};

/// The text without blanks in front and behind.
std::string Trimmed(const std::string& text);
/// A whole number without a sign and nothing else.
bool ParseNumber(const std::string& text, int& number);
bool IsIdentifier(const std::string& text);
