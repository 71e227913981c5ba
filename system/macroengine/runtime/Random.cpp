#include "runtime/Random.h"

#include <UI_MacroProcessor.h>

MacroRandom& MacroRandom::Instance() {
    static MacroRandom instance;
    return instance;
}

/// Steps the state by a fixed odd amount and mixes it, so that near seeds give unlike numbers.
double MacroRandom::Next() {
    m_State += 0x9E3779B97F4A7C15u;
    std::uint64_t bits = m_State;
    bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9u;
    bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EBu;
    bits ^= bits >> 31;
    m_Last = static_cast<double>(bits >> 49) / 32768.0;
    return m_Last;
}

void MacroSupport::OnRandomize(UI_MacroVariant* seed) {
    MacroRandom::Instance().Seed(seed ? static_cast<int>(*seed) : 1);
}
