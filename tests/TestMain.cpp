// Runs all tests. A failed assertion of the foundation fails the test in which it happens, unless
// that test has put a handler of its own in place.

#include <SCL_Assert.h>

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

bool failTest(const char* message, const char* file, int line) {
    ADD_FAILURE_AT(file, line) << "Unexpected assertion: " << message;
    return true;
}

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    unsetenv("COLUMNS"); // macros ask for the width of the terminal
    unsetenv("NO_COLOR");
    kel_ns::SetAssertHandler(failTest);
    return RUN_ALL_TESTS();
}
