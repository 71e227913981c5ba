#include "TempDirectory.h"
#include "TestPlatform.h"

#include <SCL_Path.h>
#include <SFM_Directory.h>
#include <SFM_FilePath.h>
#include <cCommandLineSwitchInfo.h>

using namespace kel_ns;
using namespace kel_ns::SCL;

namespace {

std::string taken(const char* buffer) {
    const std::string text(buffer);
    cPathProcessor::release_buffer(buffer);
    return text;
}

TEST(PathTest, PartsDirectoriesAndNormalForms) {
    struct Case {
        const char *path, *normal, *directory, *extension;
        bool relative;
    };
    const Case cases[] = {
        {"", ".", "", "", true},
        {".", ".", "", "", true},
        {"..", "..", "", "", true},
        {"/", "/", "/", "", false},
        {"a.mcr", "a.mcr", "", ".mcr", true},
        {"/a", "/a", "/", "", false},
        {"\\a\\b.c", "/a/b.c", "\\a", ".c", false},
        {"a//b/./c.d.e", "a/b/c.d.e", "a//b/.", ".e", true},
        {"a/../../b", "../b", "a/../..", "", true},
        {"/../a/", "/a", "/../a", "", false},
        {"dir.x/name", "dir.x/name", "dir.x", "", true},
        {".hidden", ".hidden", "", ".hidden", true},
        {"X:\\a\\..\\b", "X:/b", "X:\\a\\..", "", false},
        {"x:b", "x:b", "x:", "", false},
        {"a/..", ".", "a", "", true},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(taken(cPathProcessor::normalize(c.path, false)), c.normal) << c.path;
        EXPECT_EQ(taken(cPathProcessor::get_owning_directory(c.path)), c.directory) << c.path;
        EXPECT_EQ(taken(cPathProcessor::get_extension(c.path)), c.extension) << c.path;
        EXPECT_EQ(cPathProcessor::is_relative(c.path), c.relative) << c.path;
    }
    TestPlatform platform;
    EXPECT_EQ(taken(cPathProcessor::normalize("../x\\y", true)), "/home/x/y");
    EXPECT_EQ(taken(cPathProcessor::normalize("/x/.", true)), "/x");
    EXPECT_TRUE(cPathProcessor::equal("a\\b", "./a//c/../b"));
    EXPECT_FALSE(cPathProcessor::equal("a/b", "a/B"));
}

TEST(PathTest, JoiningAndVariables) {
    const char* const joins[][3] = {
        {"a", "b", "a/b"}, {"a/", "b", "a/b"},      {"a\\", "b", "a\\b"},   {"", "b", "b"},
        {"a", "/b", "/b"}, {"a", "C:\\b", "C:\\b"}, {nullptr, nullptr, ""}, {"a", "", "a/"}};
    for (const auto& c : joins)
        EXPECT_EQ(taken(cPathProcessor::append(c[0], c[1])), c[2]);

    TestPlatform platform;
    platform.environment = {{"HOME", "/home/u"}, {"EMPTY", ""}};
    const char* const texts[][2] = {
        {"%HOME%/x", "/home/u/x"},      {"${HOME}${EMPTY}/x", "/home/u/x"},
        {"%NONE%/100%", "%NONE%/100%"}, {"${HOME", "${HOME"},
        {"%%HOME%", "%/home/u"},        {"$HOME", "$HOME"}};
    for (const auto& c : texts) {
        char* out = nullptr;
        ASSERT_TRUE(cPathProcessor::resolve_env_vars(c[0], &out));
        EXPECT_EQ(taken(out), c[1]) << c[0];
    }
    EXPECT_FALSE(cPathProcessor::resolve_env_vars(nullptr, nullptr));

    file_path path("a/b");
    path /= "..\\d.mcr";
    EXPECT_STREQ(path.normalized().c_str(), "a/d.mcr");
    EXPECT_STREQ(path.extension().c_str(), ".mcr");
}

TEST(PathTest, SearchLists) {
    const TempDirectory directory;
    GetPlatform().MakeDirectory(directory.Path("one"));
    GetPlatform().MakeDirectory(directory.Path("two"));
    directory.Write("two/found.mcr", "");
    SYS_String list;
    list << ";;" << directory.Path("one") << ":" << directory.Path("none") << ";"
         << directory.Path("two") << ":";
    const SCL_Pointer<cFilePathListImplBase> paths(cFilePathListImplBase::create(list));
    EXPECT_EQ(paths->count(), 3);
    EXPECT_TRUE(paths->find("found.mcr") == directory.Path("two/found.mcr"));
    EXPECT_TRUE(paths->find("missing.mcr").IsEmpty());
    EXPECT_TRUE(paths->find(nullptr).IsEmpty());
    paths->add_directory("odd;name:here");
    EXPECT_STREQ(paths->at(3), "odd;name:here");
    EXPECT_TRUE(filesystem::current_directory().exists(directory.Path("two/found.mcr")));
    EXPECT_FALSE(filesystem::current_directory().exists("found.mcr"));
    EXPECT_FALSE(filesystem::current_directory().exists(""));
}

TEST(PathTest, FilePathsAreCompletedWhereTheyLackSomething) {
    struct Case {
        const char *path, *pattern, *result;
    };
    const Case defaults[] = {
        {"a", "*.mcr", "a.mcr"},
        {"a.txt", "*.mcr", "a.txt"},
        {"a.", "*.mcr", "a."},
        {"dir.x/a", "*.mcr", "dir.x/a.mcr"},
        {"dir\\a", "base/*.mcr", "dir\\a.mcr"},
        {"a", "base/*.mcr", "base/a.mcr"},
        {"", "*.mcr", ""},
        {"dir/", "*.mcr", "dir/"},
        {"..", "*.mcr", ".."},
        {"", "/logs/tool.log", "/logs/tool.log"},
        {".log", "/logs/tool.log", "/logs/tool.log"},
        {"x", "/logs/tool.log", "/logs/x.log"},
        {"sub/x.txt", "/logs/tool.log", "sub/x.txt"},
    };
    for (const Case& c : defaults)
        EXPECT_STREQ(SFM_FilePath(c.path).SetDefault(c.pattern).GetPath(), c.result) << c.path;
    const Case extensions[] = {
        {"a.log", ".bak", "a.bak"}, {"a.log", "bak", "a.bak"}, {"d.x/a", "bak", "d.x/a.bak"},
        {"a.b.c", "d", "a.b.d"},    {"a.b", "", "a"},          {"a.b", nullptr, "a"},
    };
    for (const Case& c : extensions)
        EXPECT_STREQ(SFM_FilePath(c.path).SetFileExtension(c.pattern).GetPath(), c.result);
    EXPECT_STREQ(SFM_FilePath("a/b.c").SetFileNameExt("x.y").GetPath(), "a/x.y");
    EXPECT_STREQ(SFM_FilePath("b.c").SetFileNameExt("x.y").GetPath(), "x.y");
    EXPECT_STREQ(SFM_FilePath("a").AddSeparator().AddSeparator().GetPath(), "a/");
    EXPECT_STREQ(SFM_FilePath("").AddSeparator().GetPath(), "");
    EXPECT_STREQ(SFM_FilePath("a/b").GetFileDirectory(), "a");
    EXPECT_STREQ(SFM_FilePath("a/b").GetFileDirectory("/c/d/e"), "/c/d");
}

TEST(PathTest, DefaultPathsComeFromTheProgramOrTheHost) {
    TestPlatform platform;
    EXPECT_STREQ(SFM_FilePath::GetDefaultPath("Exec"), "/opt/tool/bin");
    EXPECT_STREQ(SFM_FilePath::GetDefaultPath("Logs"), "/opt/tool/bin/Logs");
    EXPECT_STREQ(SFM_FilePath::GetApplicationName(), "drawer.exe");
    SFM_FilePath::SetDefaultPathHook(
        [](const char* name) { return SYS_String(name) == "Logs" ? "/var/log" : ""; });
    SFM_FilePath::SetApplicationNameHook([] { return SYS_String("Drawer"); });
    EXPECT_STREQ(SFM_FilePath::GetDefaultPath("Logs"), "/var/log");
    EXPECT_STREQ(SFM_FilePath::GetDefaultPath("Exec"), "/opt/tool/bin");
    EXPECT_STREQ(SFM_FilePath::GetApplicationName(), "Drawer");
    SFM_FilePath::SetDefaultPathHook(nullptr);
    SFM_FilePath::SetApplicationNameHook(nullptr);
}

TEST(DirectoryTest, NamePatterns) {
    struct Case {
        const char *name, *pattern;
        bool fits;
    };
    const Case cases[] = {
        {"a.mcr", "*.mcr", true},
        {"a.MCR", "*.mcr", false},
        {"a.mcr.bak", "*.mcr", false},
        {"abcbc", "a*bc", true},
        {"abcb", "a*bc", false},
        {"", "*", true},
        {"", "?", false},
        {"ab", "?", false},
        {"ab", "a?", true},
        {"a", "a**", true},
        {"noext", "*.*", false},
        {"a*b", "a*b", true},
        {"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaab", "*a*a*a*a*a*a*a*a*a*a*c", false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(SFM_MatchName(c.name, c.pattern), c.fits) << c.name << " " << c.pattern;
}

std::string listed(SFM_Directory& directory, unsigned attributes, const char* pattern) {
    std::string all;
    for (SYS_String name = directory.GetNextEntryWithAttr(attributes, pattern); !name.IsEmpty();
         name = directory.GetNextEntryWithAttr(attributes, nullptr))
        all += std::string(name) + " ";
    return all;
}

TEST(DirectoryTest, EntriesByPatternAndAttributes) {
    const TempDirectory files;
    for (const char* name : {"b.txt", "a.txt", "Z.txt", ".dot", "c.mcr"})
        files.Write(name, "");
    GetPlatform().MakeDirectory(files.Path("sub"));
    GetPlatform().MakeDirectory(files.Path(".git"));
    files.Write("sub/inner.txt", "");

    SFM_Directory directory(files.Path());
    EXPECT_EQ(directory.GetNextEntryWithAttr(0, nullptr), "");
    EXPECT_EQ(listed(directory, 0, "*"), "Z.txt a.txt b.txt c.mcr ");
    EXPECT_EQ(listed(directory, 0, "*.txt"), "Z.txt a.txt b.txt ");
    EXPECT_EQ(listed(directory, 2, "*"), ".dot Z.txt a.txt b.txt c.mcr ");
    EXPECT_EQ(listed(directory, 16, "*"), "Z.txt a.txt b.txt c.mcr sub ");
    EXPECT_EQ(listed(directory, 18, ".*"), ".dot .git ");
    EXPECT_EQ(listed(directory, 1 | 4 | 32, "a.txt"), "a.txt ");
    EXPECT_EQ(listed(directory, 0, "sub"), "");
    EXPECT_EQ(listed(directory, 16, "sub"), "sub ");
    EXPECT_EQ(listed(directory, 0, "sub\\"), "inner.txt ");
    EXPECT_EQ(listed(directory, 0, "none/*"), "");
    EXPECT_EQ(listed(directory, 8, "*"), "");

    SFM_Directory anywhere;
    EXPECT_EQ(listed(anywhere, 0, files.Path("?.txt")), "Z.txt a.txt b.txt ");
    anywhere.GetNextEntryWithAttr(0, files.Path("*"));
    EXPECT_STREQ(anywhere.GetNextEntryWithAttr(0, ""), "a.txt"); // no pattern goes on
    EXPECT_STREQ(anywhere.GetNextEntryWithAttr(0, files.Path("*")), "Z.txt");
    anywhere = SFM_Directory();
    EXPECT_STREQ(anywhere.GetNextEntryWithAttr(0, nullptr), "");
}

TEST(DirectoryTest, FilesAreMadeAndMoved) {
    const TempDirectory files;
    const SYS_String name = SFM_Directory(files.Path("")).GetTempFileNameA("x");
    EXPECT_STREQ(name.Left(static_cast<unsigned>(files.Path("x").GetLength())), files.Path("x"));
    EXPECT_TRUE(GetPlatform().Exists(name));
    const SYS_String plain = SFM_Directory(files.Path()).GetTempFileNameA(nullptr);
    EXPECT_EQ(plain.Find(files.Path("")), 0);
    EXPECT_STREQ(SFM_Directory(files.Path("none")).GetTempFileNameA(nullptr), "");
    EXPECT_TRUE(SFM_Directory::MoveFileA(plain, name, 1));
    EXPECT_FALSE(SFM_Directory::MoveFileA(plain, name, 1));
    EXPECT_TRUE(SFM_Directory::MakeDirectory(files.Path("new")));
    EXPECT_FALSE(SFM_Directory::MakeDirectory(files.Path("no/new")));
    EXPECT_TRUE(SFM_Directory::GetCurDir(0) == GetPlatform().CurrentDirectory());
    EXPECT_STREQ(SFM_Directory::GetCurDir(3), "");
}

TEST(CommandLineTest, SwitchesAndTheirValues) {
    struct Case {
        std::vector<SYS_String> arguments;
        bool found;
        const char* value;
    };
    const Case cases[] = {
        {{}, false, ""},
        {{"log"}, false, ""},
        {{"-log"}, true, ".log"},
        {{"--log"}, true, ".log"},
        {{"/LOG"}, true, ".log"},
        {{"-log", "out.txt"}, true, "out.txt"},
        {{"-log", "/tmp/out.txt"}, true, "/tmp/out.txt"},
        {{"-log", "-other"}, true, ".log"},
        {{"--log=a b"}, true, "a b"},
        {{"/log:x=y"}, true, "x=y"},
        {{"-log=", "next"}, true, ".log"},
        {{"-logger"}, false, ""},
        {{"---log"}, false, ""},
    };
    TestPlatform platform;
    const cCommandLineSwitchInfo log("log", true, ".log", "writes a log");
    for (const Case& c : cases) {
        platform.arguments = c.arguments;
        platform.arguments.insert(platform.arguments.begin(), "-log");
        EXPECT_EQ(log.IsFound(), c.found);
        EXPECT_STREQ(log.GetValue(), c.value) << (c.found ? c.arguments[0].c_str() : "");
    }
    platform.arguments = {"prog", "-log=1", "x", "-LOG", "2"};
    EXPECT_STREQ(log.GetValue(1), "2");
    EXPECT_STREQ(log.GetValue(2), "");
    const cCommandLineSwitchInfo strict("Log", false, nullptr, nullptr, false, false);
    platform.arguments = {"prog", "-log", "/Log", "--Log", "value"};
    EXPECT_TRUE(strict.IsFound());
    EXPECT_STREQ(strict.GetValue(), "");
    EXPECT_STREQ(strict.GetValue(1), "");
}

} // namespace
