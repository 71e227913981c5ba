#include "../AssertRecorder.h"

#include <SYS_Exception.h>
#include <SYS_Resources.h>
#include <SYS_String.h>
#include <SYS_Unicode.h>

#include <stdexcept>

using namespace kel_ns;
using namespace std::string_view_literals;

static_assert(sizeof(SYS_String) == 8);
static_assert(std::is_nothrow_move_constructible_v<SYS_String>);

template <class A, class B>
concept Addable = requires(A a, B b) {
    a + b;
};
static_assert(Addable<SYS_String, const char*> && Addable<const char*, SYS_String>);
static_assert(!Addable<SYS_String, int> && !Addable<SYS_String, unsigned long>);

namespace {

SYS_String bytes(std::string_view text) { return SYS_String(text); }

} // namespace

TEST(SYS_String, EmptyStringsOwnNothing) {
    std::size_t blocks = SCL::cStaticAlloc::GetLiveBlocks();
    SYS_String a;
    SYS_String b("");
    SYS_String c(static_cast<const char*>(nullptr));
    SYS_String d('x', 0);
    SYS_String e = bytes("abc").Left(0);
    SYS_String f = a + b + "" + c;
    EXPECT_STREQ(f.c_str(), "");
    EXPECT_EQ(a, f);
    EXPECT_EQ(SCL::cStaticAlloc::GetLiveBlocks(), blocks);
}

TEST(SYS_String, CopiesShareUntilWritten) {
    const SYS_String original("shared text");
    using Change = void (*)(SYS_String&);
    const Change changes[] = {
        [](SYS_String& s) { s += 'x'; },
        [](SYS_String& s) { s += "x"; },
        [](SYS_String& s) { s << 1; },
        [](SYS_String& s) { s.MakeUpper(); },
        [](SYS_String& s) { s.MakeReverse(); },
        [](SYS_String& s) { s.Replace(0, 2, "y"); },
        [](SYS_String& s) { s.Delete(1); },
        [](SYS_String& s) { s.Insert(3, 'q'); },
        [](SYS_String& s) { s.GetBuffer(4)[0] = 'z'; },
        [](SYS_String& s) { s.Clear(); },
    };
    for (Change change : changes) {
        SYS_String copy = original;
        EXPECT_TRUE(copy.SharesTextWith(original));
        change(copy);
        EXPECT_EQ(original.View(), "shared text");
        EXPECT_NE(copy, original);
    }
}

TEST(SYS_String, MayBeItsOwnArgument) {
    SYS_String s("abc");
    for (int i = 0; i < 8; ++i)
        s += s; // grows in place and by moving
    EXPECT_EQ(s.GetLength(), 3 * 256);
    EXPECT_EQ(s.Mid(765).View(), "abc");
    s = "0123456789";
    for (int i = 0; i < 5; ++i)
        s.Append(s.c_str() + 8, 2);
    EXPECT_EQ(s.View(), "01234567898989898989");
    s = "abcd";
    s.Replace(1, 2, s);
    EXPECT_EQ(s.View(), "aabcdd");
    s.Insert(0, s);
    EXPECT_EQ(s.View(), "aabcddaabcdd");
    s = s.c_str() + 9;
    EXPECT_EQ(s.View(), "cdd");
    s.Format("<%s>", s.c_str());
    EXPECT_EQ(s.View(), "<cdd>");
    s = *&s;
    EXPECT_EQ(s.View(), "<cdd>");
}

TEST(SYS_String, AppendingAllocatesSeldom) {
    SYS_String s;
    int moves = 0;
    const char* place = s.c_str();
    for (int i = 0; i < 100000; ++i) {
        if (i % 2)
            s += 'x';
        else
            s += "y";
        moves += s.c_str() != place;
        place = s.c_str();
    }
    EXPECT_EQ(s.GetLength(), 100000);
    EXPECT_LT(moves, 50);
}

TEST(SYS_String, NulBytesStandInside) {
    SYS_String s = bytes("a\0b"sv);
    EXPECT_EQ(s.GetLength(), 3);
    EXPECT_EQ((s + s).View(), "a\0ba\0b"sv);
    EXPECT_NE(s, bytes("a\0c"sv));
    EXPECT_NE(s, "a");
    EXPECT_GT(s.Compare("a"), 0);
    EXPECT_EQ(s.Find('b', 0), 2);
    EXPECT_EQ(s.Find(bytes("\0b"sv)), 1);
    EXPECT_EQ(s.Mid(1).View(), "\0b"sv);
    s.MakeUpper().MakeReverse();
    EXPECT_EQ(s.View(), "B\0A"sv);
    s.Replace(0, 1, bytes("\0\0"sv));
    EXPECT_EQ(s.View(), "\0\0\0A"sv);
    EXPECT_EQ(SYS_StrNoCase(bytes("x\0Y"sv)), SYS_StrNoCase(bytes("X\0y"sv)));
    EXPECT_FALSE(SYS_StrNoCase(bytes("x\0Y"sv)) == SYS_StrNoCase(bytes("X\0z"sv)));
}

TEST(SYS_String, FindsAndCuts) {
    const SYS_String s("hello world");
    struct {
        int got, want;
    } finds[] = {
        {s.Find('o', 0), 4},        {s.Find('o', 5), 7},
        {s.Find('o', 99), -1},      {s.Find("o w", 0), 4},
        {s.Find("lo", -5), 3},      {s.Find("", 11), 11},
        {s.Find("", 12), -1},       {s.Find("world!", 0), -1},
        {s.FindOneOf("wr", 0), 6},  {s.FindOneOf("wr", 7), 8},
        {s.FindOneOf("", 0), -1},   {s.ReverseFind('o'), 7},
        {SYS_String().Find(""), 0}, {SYS_String().Find('x', 0), -1},
    };
    for (std::size_t i = 0; i < std::size(finds); ++i)
        EXPECT_EQ(finds[i].got, finds[i].want) << "case " << i;
    EXPECT_EQ(s.Left(5), "hello");
    EXPECT_EQ(s.Left(50), s);
    EXPECT_EQ(s.Right(5), "world");
    EXPECT_EQ(s.Right(50), s);
    EXPECT_EQ(s.Mid(6, 3), "wor");
    EXPECT_EQ(s.Mid(6, 0xFFFFFFFFu), "world");
    EXPECT_EQ(s.Mid(11), "");
    EXPECT_EQ(s.Mid(99, 2), "");
    EXPECT_EQ(s[0], 'h');
    EXPECT_EQ(s[11], '\0');
    EXPECT_EQ(s[-1], '\0');
}

TEST(SYS_String, ChangesClipTheirRange) {
    struct {
        int start, count;
        const char *text, *want;
    } cases[] = {
        {0, 0, "x", "xabc"}, {3, 0, "x", "abcx"},  {9, 4, "x", "abcx"}, {1, 99, "x", "ax"},
        {-3, 1, "x", "xbc"}, {1, -2, "x", "axbc"}, {0, 3, "", ""},      {1, 1, "long text", ""},
    };
    cases[7].want = "along textc";
    for (const auto& c : cases) {
        SYS_String s("abc");
        s.Replace(c.start, c.count, c.text);
        EXPECT_EQ(s, c.want) << c.start << ", " << c.count;
    }
    SYS_String s("  \t abc \r\n");
    EXPECT_EQ(s.Delete(0, 2), 8);
    EXPECT_EQ(s.TrimLeft().TrimRight(), "abc");
    EXPECT_EQ(s.Insert(1, "--"), 5);
    EXPECT_EQ(s, "a--bc");
    EXPECT_EQ(SYS_String(" \n\v\f ").TrimRight(), "");
    EXPECT_EQ(SYS_String(" \xa0x").TrimLeft(), "\xa0x");
}

TEST(SYS_String, ComparesUnsignedBytesAndFoldsAsciiOnly) {
    EXPECT_LT(SYS_String("a"), SYS_String("b"));
    EXPECT_LT(SYS_String("z"), "\xe4");
    EXPECT_LT("B", SYS_String("a"));
    EXPECT_GE(SYS_String("b"), SYS_String("ab")); // and not by address
    EXPECT_GE(SYS_StrNoCase("B"), SYS_StrNoCase("ab"));
    EXPECT_EQ(SYS_String("STRASSE").CompareNoCase("strasse"), 0);
    EXPECT_LT(SYS_String("a_").CompareNoCase("AB"), 0);
    EXPECT_NE(SYS_String("\xc4").CompareNoCase("\xe4"), 0);
    EXPECT_NE(SYS_String("@[`{").CompareNoCase("`{@["), 0);
    EXPECT_EQ(SYS_String("\xc3\x89z").MakeLower(), "\xc3\x89z");
    EXPECT_EQ(SYS_String("\xc3\xa9z").MakeUpper(), "\xc3\xa9Z");
    SYS_StrNoCase name("Name");
    EXPECT_TRUE(name == "nAME");
    EXPECT_TRUE(name == SYS_String("NAME"));
    EXPECT_FALSE(name == "names");
    SYS_String text = name;
    EXPECT_EQ(text.View(), "Name");
}

TEST(SYS_String, LimitsTheLengthOfText) {
    SYS_String s("12345678");
    SYS_String::SetMaxBytes(10);
    EXPECT_THROW(s += "abc", std::length_error);
    EXPECT_THROW(s.Replace(0, 0, "abc"), std::length_error);
    EXPECT_THROW(SYS_String('x', 11), std::length_error);
    EXPECT_EQ(s, "12345678");
    s += 'a';
    s += 'b';
    EXPECT_THROW(s += 'c', std::length_error);
    EXPECT_EQ(s, "12345678ab");
    SYS_String::SetMaxBytes(~std::size_t{0});
    EXPECT_EQ(SYS_String::GetMaxBytes(), 0x3FFFFFFFu);
    EXPECT_THROW(SYS_String('x', std::size_t{0x40000000}), std::length_error);
    EXPECT_THROW(s.Append("x", ~std::size_t{0}), std::length_error);
}

TEST(SYS_String, GivesOutItsBuffer) {
    SYS_String s("ab");
    SYS_String copy = s;
    char* buffer = s.GetBuffer(100);
    EXPECT_STREQ(buffer, "ab");
    std::memset(buffer, 'x', 100);
    s.ReleaseBuffer(100);
    EXPECT_EQ(s, SYS_String('x', 100));
    EXPECT_EQ(copy, "ab");
    std::strcpy(s.GetBuffer(5), "hey");
    s.ReleaseBuffer();
    EXPECT_EQ(s, "hey");
    s.GetBuffer(0);
    s.ReleaseBuffer(0);
    EXPECT_TRUE(s.IsEmpty());
}

TEST(SYS_Unicode, EveryByteSequenceComesBack) {
    const std::string_view cases[] = {
        "plain"sv,
        "\xc3\xa9"sv,
        "\xe2\x82\xac"sv,
        "\xf0\x9f\x98\x80"sv,
        "\xff\xfe"sv,
        "\xc3"sv,
        "\xe2\x82"sv,
        "\xc0\x80"sv,
        "\xed\xa0\x80"sv,
        "\xf4\x90\x80\x80"sv,
        "\x80"
        "a\0b\xc3\xa9"sv,
        ""sv,
    };
    for (std::string_view text : cases) {
        EXPECT_EQ(SYS_FromUtf16(SYS_ToUtf16(text)).View(), text);
        EXPECT_EQ(SYS_FromWide(SYS_ToWide(text)).View(), text);
    }
    EXPECT_EQ(SYS_ToUtf16("\xff"), std::u16string(1, 0xDCFF));
    EXPECT_EQ(SYS_ToUtf16("\xf0\x9f\x98\x80"), u"\U0001F600");
    EXPECT_EQ(SYS_String(L"\u20ac1"), "\xe2\x82\xac"
                                      "1");
}

TEST(SYS_Resources, TextsComeFromTheTableAddedLast) {
    static const SYS_Resource first[] = {{70001, "one"}, {70002, "two"}};
    static const SYS_Resource second[] = {{70002, "zwei"}};
    SYS_RegisterResources(first, 2);
    SYS_RegisterResources(second, 1);
    SYS_RegisterResources(first, 2);
    EXPECT_EQ(TR(70001), "one");
    EXPECT_EQ(TR(70002), "zwei");
    EXPECT_EQ(TR(70003), "");
    SYS_String s("old");
    EXPECT_FALSE(s.LoadString(70003));
    EXPECT_EQ(s, "");
    EXPECT_TRUE(s.LoadString(70001));
    EXPECT_EQ(s, "one");
}

TEST(SYS_Exception, CarriesAFormattedText) {
    try {
        throw SYS_Exception("%s failed with %d", "open", 5);
    } catch (const std::exception& e) {
        EXPECT_STREQ(e.what(), "open failed with 5");
    }
    EXPECT_THROW(SSM_Throw(), SYS_Exception);
}
