#include "runtime/Random.h"

#include <UI_MacroProcessor.h>

MacroRandom& MacroRandom::Instance() {
    static MacroRandom instance;
    return instance;
}

double MacroRandom::Last() {
    if (m_Last < 0)
        m_Last = draw();
    return m_Last;
}

double MacroRandom::Next() {
    Last(); // the first number of all is there to be repeated
    m_Last = draw();
    return m_Last;
}

/// Steps the state by a fixed odd amount and mixes it, so that near seeds give unlike numbers.
double MacroRandom::draw() {
    m_State += 0x9E3779B97F4A7C15u;
    std::uint64_t bits = m_State;
    bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9u;
    bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EBu;
    bits ^= bits >> 31;
    return static_cast<double>(bits >> 49) / 32768.0;
}

void MacroSupport::OnRandomize(UI_MacroVariant* seed) {
    MacroRandom::Instance().Seed(seed ? static_cast<int>(*seed) : 1);
}
