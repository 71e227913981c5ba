#pragma once

// Words with a fixed meaning: keywords, and the constants that the scanner turns into literals.

#include <span>
#include <string_view>

/// What a fixed word stands for.
struct MacroWord {
    std::string_view name;
    int token = 0;         // a keyword's number, or tokInteger or tokString for a constant
    long long integer = 0; // of an integer constant
    std::string_view text; // of a string constant
};

/// The fixed word of that spelling in any case, or null.
const MacroWord* FindMacroWord(std::string_view name);

/// A suffix of number literals, case sensitive, and what it multiplies by.
struct MacroUnit {
    std::string_view suffix;
    double factor;
};

/// The unit of that suffix, or null.
const MacroUnit* FindMacroUnit(std::string_view suffix);
/// All units.
std::span<const MacroUnit> GetMacroUnits();
