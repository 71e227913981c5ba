#pragma once

#include <SCL_Assert.h>

#include <string>
#include <utility>
#include <vector>

// Collects failed assertions while it lives, so that a test can state which ones it expects. One
// that nobody has taken at the end fails the test.
class AssertRecorder {
public:
    AssertRecorder() : m_Old(kel_ns::SetAssertHandler(record)) { messages().clear(); }
    ~AssertRecorder();
    AssertRecorder(const AssertRecorder&) = delete;
    AssertRecorder& operator=(const AssertRecorder&) = delete;

    // The messages since the last call.
    std::vector<std::string> Take() { return std::exchange(messages(), {}); }

private:
    static bool record(const char* message, const char*, int) {
        messages().push_back(message);
        return true;
    }
    static std::vector<std::string>& messages() {
        static std::vector<std::string> all;
        return all;
    }

    kel_ns::SCL_AssertHandler m_Old;
};

#include <gtest/gtest.h>

inline AssertRecorder::~AssertRecorder() {
    kel_ns::SetAssertHandler(m_Old);
    for (const std::string& message : Take())
        ADD_FAILURE() << "Unexpected assertion: " << message;
}

using Messages = std::vector<std::string>;
