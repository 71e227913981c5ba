#include <SCC_Hash.h>

#include <cstring>

namespace kel_ns {

namespace {

constexpr std::uint64_t Multiplier = 0x9E3779B97F4A7C15u;
std::uint64_t mix(std::uint64_t hash, std::uint64_t word) {
    hash = (hash ^ word) * Multiplier;
    return hash ^ hash >> 29;
}

template <bool NoCase> SCC_HashValue hashBytes(std::string_view bytes) {
    std::uint64_t hash = bytes.size() * Multiplier;
    while (!bytes.empty()) {
        std::uint64_t word = 0;
        std::size_t taken = bytes.size() < sizeof word ? bytes.size() : sizeof word;
        std::memcpy(&word, bytes.data(), taken);
        hash = mix(hash, NoCase ? SYS_FoldCase(word) : word);
        bytes.remove_prefix(taken);
    }
    hash = mix(hash, hash >> 32);
    return {static_cast<unsigned>(hash >> 32 ^ hash), 0};
}

} // namespace

SCC_HashValue SCC_HashBytes(std::string_view bytes) noexcept { return hashBytes<false>(bytes); }

SCC_HashValue SCC_HashBytesNoCase(std::string_view bytes) noexcept {
    return hashBytes<true>(bytes);
}

} // namespace kel_ns
