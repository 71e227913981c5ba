#include "language/Words.h"

#include <SYS_String.h>
#include <UI_MacroProcessor.h>

#include <array>
#include <cstddef>
#include <cstdint>

#include "engine/FoldedText.h"
#include "language/Tokens.h"

constexpr MacroSupport::TokenNode MacroSupport::s_Tokens[] = {
#define KEYWORD(text, token) {text, token},
#include "language/Keywords.def"
#undef KEYWORD
};

int MacroSupport::GetTokensCount() { return static_cast<int>(std::size(s_Tokens)); }

namespace {

constexpr MacroWord kConstants[] = {
#define INTEGER_CONSTANT(name, value) {#name, tokInteger, value, {}},
#define STRING_CONSTANT(name, text) {#name, tokString, 0, text},
#include "language/Constants.def"
#undef INTEGER_CONSTANT
#undef STRING_CONSTANT
};

constexpr MacroUnit kUnits[] = {
    {"mil", 2540.0},
    {"mm", 100000.0},
    {"in", 2540000.0},
    {"mk", 100.0},
};

/// Open addressing, filled once; the rows that come first win.
class WordTable {
public:
    WordTable() {
        for (int i = 0; i < MacroSupport::GetTokensCount(); ++i)
            add({MacroSupport::s_Tokens[i].text, MacroSupport::s_Tokens[i].token, 0, {}});
        for (const MacroWord& constant : kConstants)
            add(constant);
    }

    const MacroWord* Find(std::string_view name) const {
        for (std::uint32_t i = FoldedHash(name);; ++i) {
            const MacroWord& word = m_Words[i % kSize];
            if (word.token == 0)
                return nullptr;
            if (EqualFolded(word.name, name))
                return &word;
        }
    }

private:
    static constexpr std::size_t kSize = 512;

    void add(const MacroWord& word) {
        std::uint32_t i = FoldedHash(word.name);
        while (m_Words[i % kSize].token != 0) {
            if (EqualFolded(m_Words[i % kSize].name, word.name))
                return;
            ++i;
        }
        m_Words[i % kSize] = word;
    }

    std::array<MacroWord, kSize> m_Words{};
};

} // namespace

const MacroWord* FindMacroWord(std::string_view name) {
    static const WordTable* const table = new WordTable;
    return table->Find(name);
}

const MacroUnit* FindMacroUnit(std::string_view suffix) {
    for (const MacroUnit& unit : kUnits) {
        if (unit.suffix == suffix)
            return &unit;
    }
    return nullptr;
}

std::span<const MacroUnit> GetMacroUnits() { return kUnits; }
