#pragma once

#include <cstdint>

/// The random numbers of all macros. A generator of its own, so that the host's stays untouched.
class MacroRandom {
public:
    static MacroRandom& Instance();

    /// As if seeded with 1, and one number given already.
    MacroRandom() { Next(); }

    void Seed(int seed) { m_State = static_cast<std::uint32_t>(seed); }
    /// A new number from 0 to below 1, in steps of 1/32768.
    double Next();
    /// The number given last.
    double Last() const { return m_Last; }

private:
    std::uint64_t m_State = 1;
    double m_Last = 0;
};
