#include "../AssertRecorder.h"

#include <SYS_String.h>

#include <climits>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <filesystem>

using namespace kel_ns;

namespace {

// Sets a process locale whose decimal sign is a comma, made for the test if the system has none.
class CommaLocale {
public:
    CommaLocale() {
        for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "de_DE"})
            if (trySet(name))
                return;
        char folder[] = "/tmp/kel-locale-XXXXXX";
        if (!mkdtemp(folder))
            return;
        m_Folder = folder;
        std::string command =
            "localedef -i de_DE -f UTF-8 " + m_Folder + "/de_DE.UTF-8 2>/dev/null";
        if (std::system(command.c_str()) != 0)
            return;
        setenv("LOCPATH", folder, 1);
        trySet("de_DE.UTF-8");
    }
    ~CommaLocale() {
        std::setlocale(LC_ALL, "C");
        if (!m_Folder.empty()) {
            unsetenv("LOCPATH");
            std::filesystem::remove_all(m_Folder);
        }
    }
    bool IsSet() const { return m_Set; }

private:
    bool trySet(const char* name) {
        m_Set = std::setlocale(LC_ALL, name) && *std::localeconv()->decimal_point == ',';
        return m_Set;
    }
    std::string m_Folder;
    bool m_Set = false;
};

} // namespace

TEST(SYS_StringNumbers, WriteDecimalText) {
    struct {
        double value;
        const char* text;
    } cases[] = {
        {0, "0"},          {1.5, "1.5"},       {-2, "-2"},           {1234567, "1.23457e+06"},
        {1e-5, "1e-05"},   {0.0001, "0.0001"}, {100000, "100000"},   {1e300, "1e+300"},
        {HUGE_VAL, "inf"}, {-0.0, "-0"},       {123456.7, "123457"}, {1.0 / 3, "0.333333"},
    };
    for (const auto& c : cases) {
        SYS_String s;
        s << c.value;
        EXPECT_EQ(s, c.text);
        SYS_String printed;
        EXPECT_EQ(printed.Format("%g", c.value), s);
    }
    SYS_String s;
    s << INT_MIN << ' ' << LLONG_MIN << ' ' << 7l << ' ' << ULLONG_MAX << ' ' << 'x';
    EXPECT_EQ(s, "-2147483648 -9223372036854775808 7 18446744073709551615 x");
    s = "#";
    EXPECT_EQ(s.Add(0xABCDEFu, 16).Add(0, 16).Add(5, 2), "#abcdef0101");
}

TEST(SYS_StringNumbers, FormatsTextOfAnyLength) {
    SYS_String s("old");
    for (int width : {1, 254, 255, 256, 257, 5000}) {
        s.Format("%*d", width, 7);
        EXPECT_EQ(s, SYS_String(' ', static_cast<std::size_t>(width - 1)) + "7");
    }
    s.Format("%s", "");
    EXPECT_TRUE(s.IsEmpty());
}

TEST(SYS_StringNumbers, ParseIntegers) {
    struct {
        const char* text;
        int base;
        __int64 wide;
        int narrow;
        int length; // of what was parsed
    } cases[] = {
        {"42", 10, 42, 42, 2},
        {" \t-17x", 10, -17, -17, 5},
        {"+5", 10, 5, 5, 2},
        {"0x1F", 0, 31, 31, 4},
        {"0x1F", 16, 31, 31, 4},
        {"0x1F", 10, 0, 0, 1},
        {"0xg", 0, 0, 0, 1},
        {"017", 0, 15, 15, 3},
        {"08", 0, 0, 0, 1},
        {"zz", 36, 35 * 37, 35 * 37, 2},
        {"", 10, 0, 0, 0},
        {"  -", 10, 0, 0, 0},
        {"abc", 10, 0, 0, 0},
        {"2147483648", 10, 2147483648LL, INT_MAX, 10},
        {"-2147483648", 10, -2147483648LL, INT_MIN, 11},
        {"-2147483649", 10, -2147483649LL, INT_MIN, 11},
        {"9223372036854775808", 10, LLONG_MAX, INT_MAX, 19},
        {"-9223372036854775808", 10, LLONG_MIN, INT_MIN, 20},
        {"99999999999999999999999", 10, LLONG_MAX, INT_MAX, 23},
        {"-99999999999999999999999", 10, LLONG_MIN, INT_MIN, 24},
        {"7", 1, 0, 0, 0},
    };
    for (const auto& c : cases) {
        SYS_String s(c.text);
        __int64 wide = 99;
        int narrow = 99;
        const char* end = nullptr;
        EXPECT_EQ(s.Value(&wide, &end, c.base), c.wide) << c.text;
        EXPECT_EQ(wide, c.wide);
        EXPECT_EQ(end - s.c_str(), c.length) << c.text;
        EXPECT_EQ(s.Value(&narrow, nullptr, c.base), c.narrow) << c.text;
        EXPECT_EQ(narrow, c.narrow);
    }
    auto toUnsigned = [](const char* text) {
        return SYS_String(text).Value(static_cast<unsigned*>(nullptr), nullptr, 10);
    };
    EXPECT_EQ(toUnsigned("4294967295"), UINT_MAX);
    EXPECT_EQ(toUnsigned("4294967296"), UINT_MAX);
    EXPECT_EQ(toUnsigned("-1"), UINT_MAX);
    EXPECT_EQ(toUnsigned("-2"), UINT_MAX - 1);
}

TEST(SYS_StringNumbers, ParseReals) {
    SYS_String s(" -1.25e2x");
    double value = 0;
    const char* end = nullptr;
    EXPECT_EQ(s.Value(&value, &end), -125);
    EXPECT_EQ(value, -125);
    EXPECT_STREQ(end, "x");
    s = "none";
    EXPECT_EQ(s.Value(static_cast<double*>(nullptr), &end), 0);
    EXPECT_EQ(end, s.c_str());
}

TEST(SYS_StringNumbers, IgnoreTheProcessLocale) {
    CommaLocale locale;
    if (!locale.IsSet())
        GTEST_SKIP() << "no locale with a decimal comma on this system";
    char shown[16];
    std::snprintf(shown, sizeof shown, "%g", 1.5);
    ASSERT_STREQ(shown, "1,5");
    SYS_String s;
    s << 1.5;
    EXPECT_EQ(s, "1.5");
    double value = 0;
    EXPECT_EQ(s.Value(&value), 1.5);
    EXPECT_EQ(s.Format("%.2f", 2.5), "2.50");
    std::snprintf(shown, sizeof shown, "%g", 1.5);
    EXPECT_STREQ(shown, "1,5") << "the host's locale must stay as it was";
}
