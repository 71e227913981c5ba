#include "language/WordList.h"

#include <UI_MacroProcessor.h>

#include "language/Words.h"

namespace {

constexpr ListedWord kRows[] = {
#define INTEGER_CONSTANT(name, value) {"integer", #name},
#define STRING_CONSTANT(name, text) {"string", #name},
#include "language/Constants.def"
#undef INTEGER_CONSTANT
#undef STRING_CONSTANT
#define MACRO_FUNCTION(name) {"function", #name},
#include "runtime/Functions.def"
#undef MACRO_FUNCTION
};

} // namespace

std::vector<ListedWord> ListMacroWords() {
    std::vector<ListedWord> words;
    for (int i = 0; i < MacroSupport::GetTokensCount(); ++i) {
        const std::string_view text = MacroSupport::s_Tokens[i].text;
        const bool isWord = text[0] >= 'a' && text[0] <= 'z';
        words.push_back({isWord ? "keyword" : "operator", text});
    }
    for (const MacroUnit& unit : GetMacroUnits())
        words.push_back({"unit", unit.suffix});
    words.insert(words.end(), std::begin(kRows), std::end(kRows));
    return words;
}
