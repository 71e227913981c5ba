#pragma once

// Hash and comparison of words of the language, ignoring ASCII case.

#include <SYS_String.h>

#include <cstdint>
#include <string_view>

inline std::uint32_t FoldedHash(std::string_view text) {
    std::uint32_t hash = 2166136261u;
    for (char c : text)
        hash = (hash ^ static_cast<unsigned char>(kel_ns::SYS_ToLower(c))) * 16777619u;
    return hash ^ (hash >> 15);
}

inline bool EqualFolded(std::string_view a, std::string_view b) {
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (kel_ns::SYS_ToLower(a[i]) != kel_ns::SYS_ToLower(b[i]))
            return false;
    }
    return true;
}
