#pragma once

#include <SCL_Assert.h>

#include <atomic>

namespace kel_ns {

/// Counts how often something is entered; usually 0. Raising a counter that has fallen below zero
/// is an assertion: it was lowered once too often.
class cSafeCounter {
public:
    explicit cSafeCounter(int value = 0) : m_Value(value) {}
    cSafeCounter(const cSafeCounter&) = delete;
    cSafeCounter& operator=(const cSafeCounter&) = delete;

    /// All four return the value as the language's own operators do.
    int operator++() { return increment() + 1; }
    int operator++(int) { return increment(); }
    int operator--() { return m_Value.fetch_sub(1) - 1; }
    int operator--(int) { return m_Value.fetch_sub(1); }

    operator int() const { return m_Value.load(); }

private:
    int increment() {
        int old = m_Value.fetch_add(1);
        SCL_ASSERT(old >= 0, "cSafeCounter: Counter is negative");
        return old;
    }

    std::atomic<int> m_Value;
};

} // namespace kel_ns
