#pragma once

#include <cstdint>

/// The random numbers of all macros. A generator of its own, so that the host's stays untouched.
class MacroRandom {
public:
    static MacroRandom& Instance();

    void Seed(int seed) { m_State = static_cast<std::uint32_t>(seed); }
    /// A new number from 0 to below 1, in steps of 1/32768.
    double Next();
    /// The number given last; there is always one.
    double Last();

private:
    double draw();

    std::uint64_t m_State = 1;
    double m_Last = -1; // below 0: none yet
};
