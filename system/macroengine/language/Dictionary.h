#pragma once

// The texts of a processor's tokens, each kept once. Entries keep their address until Clear.

#include <SYS_String.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "engine/Names.h"

using namespace kel_ns;

/// One text, with what the scanner has found out about it.
struct DictionaryEntry {
    SYS_String text;
    int token = 0; // as a word: 0 not looked up yet
    std::uint32_t hash = 0;
    long long integer = 0;                     // of an integer constant
    const DictionaryEntry* constant = nullptr; // the text of a string constant
    DictionaryEntry* next = nullptr;           // in its bucket
    mutable const MacroName* interned = nullptr;

    const MacroName* Name() const {
        if (!interned)
            interned = MacroName::Intern(text.View());
        return interned;
    }
};

class MacroDictionary {
public:
    MacroDictionary() = default;
    MacroDictionary(const MacroDictionary&) = delete;
    MacroDictionary& operator=(const MacroDictionary&) = delete;

    /// The entry of a text, compared byte by byte; made if it is new.
    DictionaryEntry& FindOrInsert(std::string_view text);
    std::size_t GetCount() const { return m_Count; }
    void Clear();

private:
    static constexpr std::size_t kChunk = 64;

    DictionaryEntry& insert(std::string_view text, std::uint32_t hash);
    void grow();

    std::vector<DictionaryEntry*> m_Buckets; // a power of two
    std::vector<std::unique_ptr<DictionaryEntry[]>> m_Chunks;
    std::size_t m_Count = 0;
};
