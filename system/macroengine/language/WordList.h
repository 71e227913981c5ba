#pragma once

// Every word with a fixed meaning, for those who write highlighting for an editor.

#include <string_view>
#include <vector>

struct ListedWord {
    std::string_view kind; ///< keyword, operator, unit, integer, string or function
    std::string_view word;
};

std::vector<ListedWord> ListMacroWords();
