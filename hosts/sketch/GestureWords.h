#pragma once

#include <stdexcept>
#include <string>
#include <vector>

/// What is wrong with a line of gestures, for the one who wrote it.
class GestureError : public std::runtime_error {
public:
    using runtime_error::runtime_error;
};

/// One word of a line. A quoted one is never a keyword.
struct GestureWord {
    std::string text;
    bool isQuoted = false;

    bool Is(const char* keyword) const { return !isQuoted && text == keyword; }
};

/// Blanks separate words; quotes hold one together, and two of them in it stand for one. A word
/// that begins with ' begins a comment. Throws GestureError for a quote that is never closed.
std::vector<GestureWord> SplitGesture(const std::string& line);
