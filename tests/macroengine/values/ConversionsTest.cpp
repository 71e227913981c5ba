#include "ValueSamples.h"

#include <SCC_Variant.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>

namespace {

using ConversionsTest = ValueTest;

std::string orError(const std::optional<__int64>& value) {
    return value ? Show(*value) : Error(23);
}

unsigned handleBits(const UI_MacroVariant& value) {
    return static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(value.ToHandle()));
}

// A double of any size and any bit pattern that is a number.
double anyDouble(std::mt19937_64& random) {
    for (;;) {
        const std::uint64_t bits = random();
        double value;
        std::memcpy(&value, &bits, sizeof value);
        if (!std::isnan(value))
            return value;
    }
}

void expectSameAsPrintf(double value) {
    char expected[64];
    std::snprintf(expected, sizeof expected, "%g", value);
    EXPECT_EQ(Text(static_cast<SYS_String>(UI_MacroVariant(value))), expected);
}

TEST_F(ConversionsTest, EveryKindToEveryHostType) {
    SampleTargets targets;
    for (const Sample& sample : AllSamples(targets)) {
        SCOPED_TRACE(sample.name);
        const UI_MacroVariant value = sample.make();
        auto cut = [&]() -> std::optional<__int64> {
            if (!sample.integer)
                return {};
            return static_cast<std::int32_t>(*sample.integer);
        };
        auto handle = [&]() -> std::optional<__int64> {
            if (!sample.handle)
                return {};
            return *sample.handle;
        };
        EXPECT_EQ(Outcome([&] { return static_cast<SYS_String>(value); }), "String " + sample.text);
        EXPECT_EQ(Outcome([&] { return static_cast<__int64>(value); }), orError(sample.integer));
        EXPECT_EQ(Outcome([&] { return __int64{static_cast<int>(value)}; }), orError(cut()));
        EXPECT_EQ(Outcome([&] { return __int64{static_cast<long>(value)}; }), orError(cut()));
        EXPECT_EQ(Outcome([&] { return static_cast<double>(value); }),
                  sample.real ? Show(*sample.real) : Error(23));
        EXPECT_EQ(Outcome([&] { return static_cast<bool>(value); }),
                  sample.integer ? Show(*sample.integer != 0) : Error(23));
        if (!sample.null) {
            EXPECT_EQ(Outcome([&] { return __int64{handleBits(value)}; }), orError(handle()));
        }
    }
    EXPECT_EQ(NullValue().ToHandle(), nullptr);
}

TEST_F(ConversionsTest, TextToNumbers) {
    struct {
        const char* text;
        __int64 integer;
        double real;
    } const rows[] = {
        {"  \t-12.75xyz", -12, -12.75},
        {"0x10", 0, 16},
        {"+3", 3, 3},
        {"+-3", 0, 0},
        {".5", 0, 0.5},
        {"-.5e1", 0, -5},
        {"1e5", 1, 1e5},
        {"4294967296", 2147483647, 4294967296.0},
        {"-99999999999", -2147483647 - 1, -99999999999.0},
        {"1,5", 1, 1},
        {"True", 0, 0},
        {"1e999", 1, std::numeric_limits<double>::infinity()},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(static_cast<__int64>(UI_MacroVariant(row.text)), row.integer);
        EXPECT_EQ(static_cast<double>(UI_MacroVariant(row.text)), row.real);
    }
}

TEST_F(ConversionsTest, RealsRoundHalfAwayFromZero) {
    constexpr __int64 indefinite = std::numeric_limits<__int64>::min();
    struct {
        double real;
        __int64 integer;
    } const rows[] = {
        {0.4, 0},
        {-0.4, 0},
        {0.5, 1},
        {-0.5, -1},
        {2.5, 3},
        {-2.5, -3},
        {1e15 + 0.5, 1000000000000001},
        {9.3e18, indefinite},
        {-9.3e18, indefinite},
        {std::nan(""), indefinite},
        {-std::numeric_limits<double>::infinity(), indefinite},
    };
    for (const auto& row : rows)
        EXPECT_EQ(static_cast<__int64>(UI_MacroVariant(row.real)), row.integer) << row.real;
    EXPECT_FALSE(static_cast<bool>(UI_MacroVariant(0.4)));
    EXPECT_TRUE(static_cast<bool>(UI_MacroVariant(-0.5)));
}

TEST_F(ConversionsTest, IntegerTextHasThirtyTwoBits) {
    const std::pair<__int64, const char*> rows[] = {
        {2147483647, "2147483647"},
        {2147483648, "-2147483648"},
        {4294967295, "-1"},
        {4294967296, "0"},
        {std::numeric_limits<__int64>::min(), "0"},
    };
    for (const auto& [integer, text] : rows)
        EXPECT_EQ(Text(static_cast<SYS_String>(UI_MacroVariant(integer))), text);
}

TEST_F(ConversionsTest, RealTextIsThatOfPrintf) {
    const double most = std::numeric_limits<double>::max();
    const double edges[] = {0.0,          -0.0,     1.0,      -1.0,      0.1,
                            100000,       999999,   999999.5, -999999.5, 1000000,
                            1234567,      123456.5, 0.0001,   0.00001,   0.000099999995,
                            5e-324,       most,     most * 2, -most * 2, std::nan(""),
                            -std::nan("")};
    for (double edge : edges)
        expectSameAsPrintf(edge);
    std::mt19937_64 random(20240229);
    for (int i = 0; i < 50000; ++i) {
        expectSameAsPrintf(anyDouble(random));
        // Everyday numbers, and those that lie half way between two texts.
        const auto digits = static_cast<double>(random() % 20000000);
        expectSameAsPrintf((digits - 1e7) / 1000);
        expectSameAsPrintf(digits / 2);
        expectSameAsPrintf(std::ldexp(digits, static_cast<int>(random() % 80) - 60));
    }
}

TEST_F(ConversionsTest, StringAndIntegerWithFallback) {
    EXPECT_EQ(Text(UI_MacroVariant(5).ToString()), "");
    EXPECT_EQ(Text(UI_MacroVariant("five").ToString()), "five");
    UI_MacroVariantParam variable(UI_MacroVariant("five"), false);
    EXPECT_EQ(Text(UI_MacroVariant(&variable).ToString()), "five");
    EXPECT_EQ(Text(NullValue().ToString()), "");

    EXPECT_EQ(UI_MacroVariant().ToInt(7), 7);
    EXPECT_EQ(OfKind(vvtMissing).ToInt(7), 7);
    EXPECT_EQ(NullValue().ToInt(7), 7);
    EXPECT_EQ(UI_MacroVariant::Null().ToInt(7), 7);
    EXPECT_EQ(UI_MacroVariant(0).ToInt(7), 0);
    EXPECT_EQ(UI_MacroVariant("2.9").ToInt(7), 2);
    EXPECT_EQ(UI_MacroVariant(2.9).ToInt(7), 3);
}

TEST_F(ConversionsTest, ReferencesFollowTheirTarget) {
    auto target = std::make_unique<UI_MacroVariantParam>(UI_MacroVariant(41), false);
    const UI_MacroVariant reference(target.get());
    *target = UI_MacroVariant(42);
    EXPECT_EQ(static_cast<int>(reference), 42);
    target.reset();
    EXPECT_EQ(static_cast<int>(reference), 0);
    EXPECT_EQ(Text(static_cast<SYS_String>(reference)), "");

    // Chains of any length are followed in a loop.
    std::vector<std::unique_ptr<UI_MacroVariant>> chain;
    chain.push_back(std::make_unique<UI_MacroVariant>("end"));
    for (int i = 0; i < 200000; ++i)
        chain.push_back(std::make_unique<UI_MacroVariant>(chain.back().get()));
    EXPECT_EQ(Text(static_cast<SYS_String>(*chain.front())), "end");
    EXPECT_EQ(chain[5000]->getBody(), chain.front().get());
}

TEST_F(ConversionsTest, VariantsOfTheFoundation) {
    auto convert = [](const UI_MacroVariant& value) { return SCC_Variant(value); };
    EXPECT_EQ(convert(UI_MacroVariant(__int64{4294967296})).ToInteger(), 0);
    EXPECT_EQ(convert(UI_MacroVariant(2.5)).GetType(), SCC_Variant::Real);
    EXPECT_EQ(convert(UI_MacroVariant(true)).ToInteger(), 1);
    EXPECT_EQ(Text(convert(ScriptOf("x = 1")).ToString()), "x = 1");
    EXPECT_EQ(convert(HandleOf(17)).ToInteger(), 17);
    EXPECT_EQ(convert(UI_MacroVariant()).GetType(), SCC_Variant::Empty);
    EXPECT_EQ(convert(NullValue()).GetType(), SCC_Variant::Empty);
    EXPECT_EQ(convert(ListOf({UI_MacroVariant(1)})).GetType(), SCC_Variant::Empty);
    UI_MacroVariantParam variable(UI_MacroVariant("text"), false);
    EXPECT_EQ(convert(UI_MacroVariant(&variable)).GetType(), SCC_Variant::String);

    SCC_Variant variant;
    UI_MacroVariant value(5);
    value.SetVariantVal(variant);
    EXPECT_EQ(Show(value), "Integer 5");
    variant = __int64{4294967296};
    EXPECT_EQ(Show(UI_MacroVariant(variant)), "Integer 4294967296");
    variant = 0.5;
    EXPECT_EQ(Show(UI_MacroVariant(variant)), "Double 0.5");
    variant = "text";
    EXPECT_EQ(Show(UI_MacroVariant(variant)), "String text");
}

} // namespace
