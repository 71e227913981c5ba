#include "../AssertRecorder.h"

#include <SCC_Variant.h>
#include <SLibs.h>

#include <climits>

using namespace kel_ns;

struct Foreign {};
static_assert(!std::is_constructible_v<SCC_Variant, Foreign>);

TEST(SCC_Variant, ConvertsBetweenItsTypes) {
    int object = 0;
    struct {
        SCC_Variant value;
        SCC_Variant::Type type;
        const char* text;
        double real;
        __int64 integer;
    } cases[] = {
        {{}, SCC_Variant::Empty, "", 0, 0},
        {5, SCC_Variant::Integer, "5", 5, 5},
        {true, SCC_Variant::Integer, "1", 1, 1},
        {LLONG_MIN, SCC_Variant::Integer, "-9223372036854775808", -9223372036854775808.0,
         LLONG_MIN},
        {2.75, SCC_Variant::Real, "2.75", 2.75, 2},
        {1e300, SCC_Variant::Real, "1e+300", 1e300, LLONG_MIN},
        {"12.5x", SCC_Variant::String, "12.5x", 12.5, 12},
        {SYS_String("word"), SCC_Variant::String, "word", 0, 0},
        {static_cast<const void*>(nullptr), SCC_Variant::Integer, "0", 0, 0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.value.GetType(), c.type);
        EXPECT_EQ(static_cast<SYS_String>(c.value), c.text);
        EXPECT_EQ(static_cast<double>(c.value), c.real);
        EXPECT_EQ(static_cast<__int64>(c.value), c.integer);
    }
    SCC_Variant value("text");
    value = &object;
    EXPECT_EQ(value.ToInteger(), static_cast<__int64>(reinterpret_cast<std::intptr_t>(&object)));
    value = cases[6].value;
    EXPECT_EQ(value.ToString(), "12.5x");
}

TEST(SLibs, StartsAndEndsNest) {
    AssertRecorder asserts;
    for (int round = 0; round < 3; ++round) {
        EXPECT_TRUE(SLibsDllInitialize());
        EXPECT_TRUE(SLibsDllInitialize());
        SLibsDllTerminate();
        EXPECT_TRUE(SLibsIsInitialized());
        SLibsDllTerminate();
        EXPECT_FALSE(SLibsIsInitialized());
    }
    SLibsDllTerminate();
    EXPECT_EQ(asserts.Take(), Messages{"SLibsDllTerminate without SLibsDllInitialize"});
}
