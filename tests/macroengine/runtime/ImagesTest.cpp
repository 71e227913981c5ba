// Pictures: what macros see of them, the formats that are read, and files that lie.

#include "macroengine/runtime/MacroRun.h"
#include "objects/UI_MacroImage.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace {

constexpr std::uint32_t kRed = 0xFFFF0000u;
constexpr std::uint32_t kGreen = 0xFF00FF00u;
constexpr std::uint32_t kBlue = 0xFF0000FFu;
constexpr std::uint32_t kWhite = 0xFFFFFFFFu;

std::string number(std::uint32_t value, int bytes) {
    std::string text;
    for (; bytes > 0; --bytes, value >>= 8)
        text += static_cast<char>(value & 0xFF);
    return text;
}

std::string infoHeader(int width, int height, int bits, std::uint32_t compression = 0,
                       std::uint32_t colors = 0) {
    return number(40, 4) + number(static_cast<std::uint32_t>(width), 4) +
           number(static_cast<std::uint32_t>(height), 4) + number(1, 2) +
           number(static_cast<std::uint32_t>(bits), 2) + number(compression, 4) +
           std::string(12, '\0') + number(colors, 4) + std::string(4, '\0');
}

std::string bitmap(const std::string& header, const std::string& palette,
                   const std::string& pixels) {
    const auto start = static_cast<std::uint32_t>(14 + header.size() + palette.size());
    return "BM" + std::string(8, '\0') + number(start, 4) + header + palette + pixels;
}

std::string colors(std::initializer_list<std::uint32_t> values) {
    std::string text;
    for (const std::uint32_t value : values)
        text += number(value & 0xFFFFFF, 4);
    return text;
}

std::string icon(const std::string& image, int type = 1) {
    return number(0, 2) + number(static_cast<std::uint32_t>(type), 2) + number(1, 2) +
           std::string(8, '\0') + number(static_cast<std::uint32_t>(image.size()), 4) +
           number(22, 4) + image;
}

// Two by two: red green above blue white. Rows are stored from the bottom.
const std::string kFour24 = bitmap(infoHeader(2, 2, 24), "",
                                   number(0x0000FF, 3) + number(0xFFFFFF, 3) + number(0, 2) +
                                       number(0xFF0000, 3) + number(0x00FF00, 3) + number(0, 2));
const std::vector<std::uint32_t> kFour = {kRed, kGreen, kBlue, kWhite};

TEST(Images, AreReadInEachDepth) {
    const std::string palette = colors({kRed, kGreen, kBlue, kWhite});
    const struct {
        const char* name;
        std::string bytes;
        std::vector<std::uint32_t> pixels;
    } cases[] = {
        {"24", kFour24, kFour},
        {"32, its fourth byte unused",
         bitmap(infoHeader(2, 2, 32), "",
                number(0x000000FF, 4) + number(0x12FFFFFF, 4) + number(0xFFFF0000, 4) +
                    number(0x0000FF00, 4)),
         kFour},
        {"8", bitmap(infoHeader(2, 2, 8, 0, 4), palette, number(0x0302, 4) + number(0x0100, 4)),
         kFour},
        {"4", bitmap(infoHeader(2, 2, 4, 0, 4), palette, number(0x23, 4) + number(0x01, 4)), kFour},
        {"1",
         bitmap(infoHeader(2, 2, 1), colors({kBlue, kRed}), number(0x40, 4) + number(0x80, 4)),
         {kRed, kBlue, kBlue, kRed}},
        {"from the top",
         bitmap(infoHeader(2, -2, 8, 0, 4), palette, number(0x0100, 4) + number(0x0302, 4)), kFour},
        {"an index without a colour",
         bitmap(infoHeader(1, 1, 8, 0, 1), colors({kRed}), number(9, 4)),
         {0xFF000000u}},
        {"the old header",
         bitmap(number(12, 4) + number(1, 2) + number(1, 2) + number(1, 2) + number(1, 2),
                number(0x0000FF, 3) + number(0x00FF00, 3), number(0x80, 4)),
         {kGreen}},
    };
    for (const auto& row : cases) {
        ImageData image;
        ASSERT_TRUE(ReadBitmap(row.bytes, image)) << row.name;
        EXPECT_EQ(image.pixels, row.pixels) << row.name;
        EXPECT_EQ(static_cast<std::size_t>(image.width * image.height), row.pixels.size());
    }
}

TEST(Images, IconsHaveAMask) {
    ImageData image;
    const std::string masked = infoHeader(1, 4, 24) + number(0x0000FF, 4) + number(0xFF0000, 4) +
                               number(0x80, 4) + number(0, 4);
    ASSERT_TRUE(ReadIcon(icon(masked), image));
    EXPECT_EQ(image.height, 2);
    EXPECT_EQ(image.pixels, (std::vector<std::uint32_t>{kRed, 0x000000FFu}));
    ASSERT_TRUE(ReadIcon(icon(infoHeader(1, 2, 32) + number(0x80FF0000, 4), 2), image));
    EXPECT_EQ(image.pixels, (std::vector<std::uint32_t>{0x80FF0000u}));
    EXPECT_FALSE(ReadIcon(icon(masked, 3), image));
    EXPECT_FALSE(ReadIcon(icon("\x89PNG of no bitmap"), image));
}

TEST(Images, FilesThatLieAreRefused) {
    const std::string huge = bitmap(infoHeader(0x7FFFFFFF, 0x7FFFFFFF, 1), "", "x");
    const struct {
        const char* name;
        std::string bytes;
    } cases[] = {
        {"empty", ""},
        {"no header", "BM"},
        {"another kind", "GIF89a" + std::string(100, 'x')},
        {"huge", huge},
        {"no width", bitmap(infoHeader(0, 2, 24), "", std::string(64, 'x'))},
        {"negative width", bitmap(infoHeader(-2, 2, 24), "", std::string(64, 'x'))},
        {"lowest height", bitmap(infoHeader(1, INT32_MIN, 24), "", std::string(64, 'x'))},
        {"compressed", bitmap(infoHeader(2, 2, 8, 1), colors({1}), std::string(64, 'x'))},
        {"depth", bitmap(infoHeader(2, 2, 16), "", std::string(64, 'x'))},
        {"palette cut", bitmap(infoHeader(1, 1, 8), "", "abcd")},
        {"header size", bitmap(number(0xFFFFFFFF, 4) + std::string(60, 'x'), "", "")},
    };
    for (const auto& row : cases) {
        ImageData image;
        image.width = 7;
        EXPECT_FALSE(ReadBitmap(row.bytes, image)) << row.name;
        EXPECT_EQ(image.width, 7) << row.name;
    }
    ImageData image;
    for (std::size_t size = 0; size + 2 < kFour24.size(); ++size)
        EXPECT_FALSE(ReadBitmap(std::string_view(kFour24).substr(0, size), image)) << size;
}

// Under the sanitizers this finds a read outside the file; elsewhere, a size out of proportion.
TEST(Images, DamagedFilesAreReadSafely) {
    const std::string whole[] = {
        kFour24, bitmap(infoHeader(9, 3, 4), std::string(64, 'p'), std::string(24, 'x')),
        icon(infoHeader(3, 4, 8) + std::string(1024, 'p') + std::string(16, '\1'))};
    unsigned seed = 1;
    const auto random = [&seed] { return (seed = seed * 1103515245u + 12345u) >> 16; };
    int accepted = 0;
    for (int round = 0; round < 20000; ++round) {
        std::string bytes = whole[round % 3];
        for (unsigned flips = 1 + random() % 4; flips > 0; --flips)
            bytes[random() % std::min<std::size_t>(bytes.size(), 80)] = static_cast<char>(random());
        ImageData image;
        const bool isRead = round % 3 == 2 ? ReadIcon(bytes, image) : ReadBitmap(bytes, image);
        accepted += isRead;
        ASSERT_EQ(image.pixels.size(),
                  static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height));
        ASSERT_LE(image.pixels.size(), bytes.size() * 8);
    }
    EXPECT_GT(accepted, 0);
}

class MacroImages : public testing::Test {
protected:
    MacroImages() { run.Folder().Write("four.bmp", SYS_String(kFour24.data(), kFour24.size())); }

    std::string sizesAfter(const std::string& text) {
        EXPECT_EQ(run.Run("Set i = LoadImage(\"@four.bmp\")\n" + text +
                          "\nall = i.Width & \"x\" & i.Height\n"),
                  0)
            << run.GetError();
        return run.Value("all");
    }

    MacroRun run;
};

TEST_F(MacroImages, HaveASizeAndParts) {
    EXPECT_EQ(sizesAfter(""), "2x2");
    EXPECT_EQ(sizesAfter("Set i = LoadImage(\"@four.bmp\", 16, 16)"), "2x2");
    EXPECT_EQ(sizesAfter("Set i = i.Blend"), "2x2");
    EXPECT_EQ(sizesAfter("Set i = i.Blend.Clip(0, 1, 2, 1)"), "2x1");
    EXPECT_EQ(sizesAfter("Set i = i.Clip(-1, -1, 2, 2)"), "1x1");
    EXPECT_EQ(sizesAfter("Set i = i.Clip(1, 0, 2147483647, 2147483647)"), "1x2");
    EXPECT_EQ(sizesAfter("Set i = i.Clip(5, 5, 1, 1)"), "0x0");
    EXPECT_EQ(sizesAfter("Set i = i.Clip(1, 1, -1, -1)"), "0x0");
    EXPECT_EQ(sizesAfter("Set i = i.Clip(-2147483648, 0, -2147483648, 1).Blend"), "0x1");
    EXPECT_EQ(run.Run("Set i = LoadImage(\"@four.bmp\")\nSet j = i.Clip(0, 0, 1)"), 34);
}

TEST_F(MacroImages, ClipKeepsTheRightPixels) {
    EXPECT_EQ(run.Run("Set i = LoadImage(\"@four.bmp\")\nSet part = i.Clip(1, 0, 9, 9)"), 0);
    UI_MacroVariant* part = run.Engine().LookupVar("part")->getBody();
    ASSERT_TRUE(part && part->IsMacroEval());
    EXPECT_EQ(static_cast<UI_MacroImage*>(part)->GetData().pixels,
              (std::vector<std::uint32_t>{kGreen, kWhite}));
}

TEST_F(MacroImages, IconsTakeTheWantedSize) {
    const std::string two = icon(infoHeader(2, 2, 24) + number(0x0000FF, 3) + number(0xFF0000, 3) +
                                 number(0, 2) + number(0, 4));
    run.Folder().Write("two.ico", SYS_String(two.data(), two.size()));
    const struct {
        const char* arguments;
        const char* size;
    } cases[] = {
        {"", "2x1"},       {", 4", "4x1"},        {", , 3", "2x3"},       {", 0, -1", "2x1"},
        {", 1, 1", "1x1"}, {", 48, 48", "48x48"}, {", 2147483648", "2x1"}};
    for (const auto& row : cases)
        EXPECT_EQ(sizesAfter(std::string("Set i = LoadImage(\"@two.ico\"") + row.arguments + ")"),
                  row.size);
    ImageData image;
    ASSERT_TRUE(ReadImageFile(run.Folder().Path("two.ico"), 4, 2, image));
    EXPECT_EQ(image.pixels,
              (std::vector<std::uint32_t>{kBlue, kBlue, kRed, kRed, kBlue, kBlue, kRed, kRed}));
    EXPECT_FALSE(ReadImageFile(run.Folder().Path("two.ico"), 2147483647, 2147483647, image));
}

TEST_F(MacroImages, EndWithTheLastReference) {
    EXPECT_EQ(run.Run("Set i = LoadImage(\"@four.bmp\")\nSet j = i\nSet i = Nothing"), 0);
    SCC_SafePointer<UI_MacroVariant> image(run.Engine().LookupVar("j")->getBody());
    ASSERT_TRUE(image && image->IsMacroEval());
    EXPECT_EQ(image->GetLockCount(), 2); // the variable, and this test
    *run.Engine().LookupVar("j") = UI_MacroVariant(1);
    EXPECT_EQ(image->GetLockCount(), 1);
}

TEST_F(MacroImages, ThatCannotBeReadAreErrors) {
    run.Folder().Write("bad.bmp", "BMnot a picture");
    run.Folder().Write("bad.ico", "");
    EXPECT_EQ(run.Run("Set i = LoadImage(\"@none.bmp\")"), 36);
    for (const char* name : {"bad.bmp", "bad.ico"}) {
        EXPECT_EQ(run.Run(std::string("Set i = LoadImage(\"@") + name + "\")"),
                  0); // a text has no code
        EXPECT_EQ(run.GetError(), run.InFolder(std::string("Invalid image file: @") + name));
    }
    EXPECT_EQ(run.Run("x = LoadImage()"), 34);
}

} // namespace
