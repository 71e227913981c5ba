#pragma once

// Names of the language, interned once: one record for all spellings that differ in case only.
// Records live as long as the process, so a pointer to one is the name.

#include <SYS_String.h>

#include <cstdint>
#include <string_view>

using namespace kel_ns;

struct MacroName {
    SYS_StrNoCase text; // as first seen
    std::uint32_t hash = 0;
    std::uint32_t length = 0;
    std::uint64_t bit = 0; // one of 64, for quick rejection
    MacroName* next = nullptr;

    /// The record of a name, made if it is new.
    static const MacroName* Intern(std::string_view text);
};
