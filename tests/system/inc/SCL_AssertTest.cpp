#include "../AssertRecorder.h"

#include <SYS_Exception.h>
#include <safeflag.h>

#include <csignal>

using namespace kel_ns;

namespace {

std::string s_Output;
volatile std::sig_atomic_t s_Traps = 0;

} // namespace

TEST(SCL_Assert, DefaultHandlerWritesOneLineAndGoesOn) {
    s_Output.clear();
    auto old = SetDebugOutput([](const char* text) { s_Output += text; });
    auto handler = SetAssertHandler(nullptr);
    EXPECT_TRUE(SSM_AssertFailed("broken", "file.cpp", 12, SSM_Error, 0));
    EXPECT_TRUE(SDM_AssertFailed(eAssertError, "x > 0", "other.cpp", 3));
    SetAssertHandler(handler);
    SetDebugOutput(old);
    EXPECT_EQ(s_Output, "file.cpp:12: broken\nother.cpp:3: x > 0\n");
}

TEST(SCL_Assert, OnlyARefusingHandlerTraps) {
    auto oldSignal = std::signal(SIGTRAP, [](int) { s_Traps = s_Traps + 1; });
    auto old = SetAssertHandler([](const char*, const char*, int) { return true; });
    EXPECT_FALSE(SCL_ASSERT(1 > 2, "one"));
    EXPECT_EQ(s_Traps, 0);
    SetAssertHandler([](const char*, const char*, int) { return false; });
    EXPECT_FALSE(SCL_ASSERT(1 > 2, "two"));
    EXPECT_EQ(s_Traps, 1);
    EXPECT_TRUE(SCL_ASSERT(2 > 1, "three"));
    EXPECT_THROW(SCL_ASSERT_FATAL(1 > 2, "four"), SYS_Exception);
    EXPECT_EQ(s_Traps, 2);
    SetAssertHandler(old);
    std::signal(SIGTRAP, oldSignal);
}

TEST(cSafeCounter, AssertsOnRaisingANegativeCount) {
    AssertRecorder asserts;
    cSafeCounter counter;
    EXPECT_EQ(counter++, 0);
    EXPECT_EQ(++counter, 2);
    EXPECT_EQ(counter--, 2);
    EXPECT_EQ(--counter, 0);
    EXPECT_EQ(--counter, -1);
    EXPECT_EQ(asserts.Take(), Messages{});
    EXPECT_EQ(++counter, 0);
    EXPECT_EQ(asserts.Take(), Messages{"cSafeCounter: Counter is negative"});
}
