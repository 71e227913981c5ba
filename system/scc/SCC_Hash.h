#pragma once

#include <SYS_String.h>

#include <cstdint>
#include <string_view>

namespace kel_ns {

/// The hash of a key. A non-zero exact word says that equal hashes mean equal keys, so that nothing
/// needs to be compared.
struct SCC_HashValue {
    unsigned hash = 0;
    unsigned exact = 0;
};

/// Hash bytes as they are, and with ASCII letters in one case.
KEL_MCR_API SCC_HashValue SCC_HashBytes(std::string_view bytes) noexcept;
KEL_MCR_API SCC_HashValue SCC_HashBytesNoCase(std::string_view bytes) noexcept;

/// The hash of each type of key. Types of other namespaces join in by a function of this name
/// beside them.
inline SCC_HashValue SCC_Hash(const char* text) noexcept {
    return SCC_HashBytes(text ? std::string_view(text) : std::string_view());
}
inline SCC_HashValue SCC_Hash(char* text) noexcept {
    return SCC_Hash(static_cast<const char*>(text));
}
inline SCC_HashValue SCC_Hash(const SYS_String& text) noexcept {
    return SCC_HashBytes(text.View());
}
inline SCC_HashValue SCC_Hash(const SYS_StrNoCase& text) noexcept {
    return SCC_HashBytesNoCase(text.View());
}

/// Turns different words into different hashes, spread over all bits.
constexpr unsigned SCC_MixBits(unsigned word) noexcept {
    word = (word ^ word >> 16) * 0x7FEB352Du;
    word = (word ^ word >> 15) * 0x846CA68Bu;
    return word ^ word >> 16;
}
constexpr SCC_HashValue SCC_Hash(unsigned key) noexcept { return {SCC_MixBits(key), 1}; }
constexpr SCC_HashValue SCC_Hash(int key) noexcept { return SCC_Hash(static_cast<unsigned>(key)); }
constexpr SCC_HashValue SCC_Hash(unsigned long long key) noexcept {
    auto high = static_cast<unsigned>(key >> 32);
    return {SCC_MixBits(static_cast<unsigned>(key) ^ SCC_MixBits(high)), 0};
}
constexpr SCC_HashValue SCC_Hash(__int64 key) noexcept {
    return SCC_Hash(static_cast<unsigned long long>(key));
}
constexpr SCC_HashValue SCC_Hash(long key) noexcept {
    return SCC_Hash(static_cast<unsigned long long>(key));
}
constexpr SCC_HashValue SCC_Hash(unsigned long key) noexcept {
    return SCC_Hash(static_cast<unsigned long long>(key));
}
template <class T> SCC_HashValue SCC_Hash(T* key) noexcept {
    return SCC_Hash(static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(key)));
}

/// The size of hash table that follows a size: the next power of two, from 8 on. 0 means that no
/// growth is possible.
constexpr int SCC_GetNewTableSize(int size) noexcept {
    if (size < 0 || size >= 1 << 30)
        return 0;
    int next = 8;
    while (next <= size)
        next *= 2;
    return next;
}

} // namespace kel_ns
