#include "TempDirectory.h"
#include "TestPlatform.h"

#include <unistd.h>

using namespace kel_ns;

namespace {

TEST(FileTest, ModesReadWriteAndCreate) {
    struct Case {
        const char* mode;
        bool opensMissing;
        bool reads;
        bool writes;
        const char* after; // content "old" after opening and, if it can, writing "N"
    };
    const Case cases[] = {
        {"r", false, true, false, "old"}, {"rb", false, true, false, "old"},
        {"r+", false, true, true, "Nld"}, {"rw", true, true, true, "Nld"},
        {"w", true, false, true, "N"},    {"w+", true, true, true, "N"},
        {"a", true, false, true, "oldN"}, {"a+", true, true, true, "oldN"},
    };
    const TempDirectory directory;
    for (const Case& c : cases) {
        SFM_File missing(directory.Path(c.mode));
        EXPECT_EQ(missing.Open(c.mode), c.opensMissing) << c.mode;
        SFM_File file(directory.Write("file", "old"));
        ASSERT_TRUE(file.Open(c.mode)) << c.mode;
        SYS_String text;
        EXPECT_EQ(file.ReadAll(text), c.reads) << c.mode;
        file.Seek(0);
        EXPECT_EQ(file.Write("N", 1), c.writes) << c.mode;
        EXPECT_TRUE(file.Close());
        EXPECT_STREQ(directory.Read("file"), c.after) << c.mode;
    }
    SFM_File file(directory.Path("file"));
    EXPECT_FALSE(file.Open("x"));
    EXPECT_FALSE(file.Open(""));
    EXPECT_FALSE(SFM_File(directory.Path()).Open("r"));
    EXPECT_FALSE(SFM_File().Open("w"));
    EXPECT_FALSE(file.Write("x", 1) || file.Flush() || file.Seek(0) || file.IsOpen());
}

// Against a string that does the same without any buffer.
TEST(FileTest, MixedReadsWritesAndSeeksAgreeWithAString) {
    const TempDirectory directory;
    SFM_File file(directory.Path("file"));
    ASSERT_TRUE(file.Open("w+"));
    std::string model;
    std::size_t place = 0;
    unsigned seed = 12345;
    const auto random = [&](unsigned below) {
        seed = seed * 1103515245u + 12345u;
        return (seed >> 8) % below;
    };
    for (int i = 0; i < 3000; ++i) {
        switch (random(4)) {
        case 0: {
            const std::string text(random(10) == 0 ? random(40'000) : random(50),
                                   static_cast<char>('a' + random(26)));
            ASSERT_TRUE(file.Write(text.data(), text.size()));
            if (model.size() < place + text.size())
                model.resize(place + text.size());
            model.replace(place, text.size(), text);
            place += text.size();
            break;
        }
        case 1: {
            std::string got(random(20'000), '\0');
            got.resize(file.Read(got.data(), got.size()));
            ASSERT_EQ(got, model.substr(place, got.size()));
            place += got.size();
            break;
        }
        case 2:
            place = random(static_cast<unsigned>(model.size()) + 1);
            ASSERT_TRUE(file.Seek(static_cast<__int64>(place)));
            break;
        default:
            ASSERT_EQ(file.GetLength(), static_cast<__int64>(model.size()));
            ASSERT_EQ(file.AtEnd(), place == model.size());
        }
        ASSERT_EQ(file.GetPosition(), static_cast<__int64>(place));
    }
    ASSERT_TRUE(file.Close());
    EXPECT_TRUE(directory.Read("file").View() == model);
}

TEST(FileTest, LinesWithEveryKindOfEnd) {
    const TempDirectory directory;
    SYS_String text("one\r\n\ntwo\rstill two\n", 20);
    text.Append("nul\0here\n", 9);
    const SYS_String longLine('x', 50'000);
    text << longLine << "\nlast";
    SFM_File file(directory.Write("lines", text));
    ASSERT_TRUE(file.Open("r"));
    SYS_String line;
    for (const SYS_String& expected :
         {SYS_String("one"), SYS_String(), SYS_String("two\rstill two"), SYS_String("nul\0here", 8),
          longLine, SYS_String("last")}) {
        ASSERT_TRUE(file.ReadLine(line));
        EXPECT_TRUE(line == expected) << expected.c_str();
    }
    EXPECT_FALSE(file.ReadLine(line));
    EXPECT_TRUE(line.IsEmpty());
    // A place taken between lines leads back to the same line.
    file.Seek(0);
    file.ReadLine(line);
    const __int64 place = file.GetPosition();
    EXPECT_EQ(place, 5);
    file.ReadAll(line);
    EXPECT_TRUE(file.Seek(place) && file.ReadLine(line) && file.ReadLine(line));
    EXPECT_STREQ(line, "two\rstill two");
}

TEST(FileTest, WritesReachTheFileWhenFlushedOrClosed) {
    const TempDirectory directory;
    {
        SFM_File log(directory.Path("log"));
        ASSERT_TRUE(log.Open("a"));
        EXPECT_TRUE(log.WriteLine("first"));
        EXPECT_EQ(log.GetLength(), 6);
        EXPECT_TRUE(log.Flush());
        EXPECT_STREQ(directory.Read("log"), "first\n");
        SFM_File second(directory.Path("log"));
        EXPECT_TRUE(second.Open("a+") && second.WriteLine("other") && second.Close());
        EXPECT_TRUE(log.WriteLine("last")); // behind what came meanwhile
    }
    EXPECT_STREQ(directory.Read("log"), "first\nother\nlast\n");
}

TEST(FileTest, FailuresOfTheSystemAreTold) {
    const TempDirectory directory;
    const SYS_String big('x', 100'000);
    directory.Write("big", big);
    TestPlatform platform;
    {
        SFM_File file(directory.Path("full"));
        ASSERT_TRUE(file.Open("w"));
        platform.writes.left = 0;
        EXPECT_TRUE(file.Write("buffered", 8));
        EXPECT_FALSE(file.Flush());
        platform.writes.left = -1;
        EXPECT_TRUE(file.Write("more", 4));
        EXPECT_FALSE(file.Close()); // the first bytes are missing for good
        EXPECT_STREQ(directory.Read("full"), "more");
    }
    platform.writes.left = 0;
    SFM_File file(directory.Path("full"));
    ASSERT_TRUE(file.Open("w"));
    EXPECT_FALSE(file.Write(big));
    EXPECT_FALSE(file.Close());
    platform.writes.left = -1;

    platform.reads.left = 2;
    SYS_String text("before");
    file = directory.Path("big");
    ASSERT_TRUE(file.Open("r"));
    EXPECT_FALSE(file.ReadAll(text));
    EXPECT_TRUE(text.IsEmpty());
    platform.reads.left = -1;

    const std::size_t limit = SYS_String::GetMaxBytes();
    SYS_String::SetMaxBytes(50'000);
    ASSERT_TRUE(file.Open("r"));
    EXPECT_FALSE(file.ReadAll(text));
    EXPECT_TRUE(file.Seek(0));
    EXPECT_FALSE(file.ReadLine(text));
    SYS_String::SetMaxBytes(limit);
}

TEST(FileTest, PipesAreReadAsTheyAre) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    ASSERT_EQ(::write(ends[1], "through\nthe pipe", 16), 16);
    ::close(ends[1]);
    SYS_String path;
    path.Format("/dev/fd/%d", ends[0]);
    SFM_File file(path);
    ASSERT_TRUE(file.Open("r"));
    EXPECT_TRUE(file.Seek(0)); // already there
    SYS_String text;
    EXPECT_TRUE(file.ReadAll(text));
    EXPECT_STREQ(text, "through\nthe pipe");
    EXPECT_FALSE(file.Seek(3));
    ::close(ends[0]);
}

TEST(FileTest, NamesCopiesAndDeletion) {
    const TempDirectory directory;
    SFM_File file(directory.Write("file", "text"));
    EXPECT_TRUE(file.Exists());
    EXPECT_EQ(file.GetLength(), 4);
    ASSERT_TRUE(file.Open("r"));
    const SFM_File copy(file);
    EXPECT_FALSE(copy.IsOpen());
    EXPECT_TRUE(copy.GetName() == file.GetName());
    file.SetName(file.GetName());
    EXPECT_TRUE(file.IsOpen());
    const SFM_File& itself = file;
    file = itself;
    EXPECT_TRUE(file.IsOpen());
    EXPECT_TRUE(file.Delete());
    EXPECT_FALSE(file.IsOpen() || file.Exists() || file.Delete());
    EXPECT_EQ(file.GetLength(), -1);
}

} // namespace
