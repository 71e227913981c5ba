#include "TempDirectory.h"
#include "TestPlatform.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace kel_ns;

namespace {

using Status = PlatformStatus;

Status openAs(const char* path, unsigned access, unsigned share,
              std::unique_ptr<PlatformFile>& file,
              PlatformCreation creation = PlatformCreation::OpenAlways) {
    PlatformFileOptions options;
    options.access = access;
    options.share = share;
    options.creation = creation;
    return GetPlatform().OpenFile(path, options, file);
}

constexpr unsigned None = PlatformAccessNone;
constexpr unsigned R = PlatformAccessRead;
constexpr unsigned W = PlatformAccessWrite;
constexpr unsigned RW = PlatformAccessReadWrite;

TEST(PlatformTest, StreamsOfOneProcessShareByBothSides) {
    const TempDirectory directory;
    const SYS_String path = directory.Write("shared.txt", "content");
    const SYS_String other = directory.Path("link.txt");
    ASSERT_EQ(::link(path, other), 0);
    struct Case {
        unsigned firstAccess, firstShare, secondAccess, secondShare;
        bool together;
    };
    const Case cases[] = {
        {W, RW, R, RW, true},    {W, RW, R, W, true},     {R, RW, W, R, true},
        {R, RW, W, W, false},    {W, R, R, RW, true},     {W, R, W, RW, false},
        {R, None, R, RW, false}, {R, RW, R, None, false}, {R, R, R, R, true},
        {RW, RW, RW, RW, true},  {RW, RW, R, R, false},
    };
    for (const Case& c : cases) {
        std::unique_ptr<PlatformFile> first;
        std::unique_ptr<PlatformFile> second;
        ASSERT_EQ(openAs(path, c.firstAccess, c.firstShare, first), Status::Ok);
        const Status status = openAs(other, c.secondAccess, c.secondShare, second);
        EXPECT_EQ(status, c.together ? Status::Ok : Status::InUse)
            << c.firstAccess << c.firstShare << c.secondAccess << c.secondShare;
        EXPECT_EQ(second != nullptr, c.together);
        first.reset();
        second.reset();
        EXPECT_EQ(openAs(other, RW, None, second), Status::Ok); // nothing is left of them
    }
}

TEST(PlatformTest, ARefusedOpenChangesNothing) {
    const TempDirectory directory;
    const SYS_String path = directory.Write("kept.txt", "content");
    std::unique_ptr<PlatformFile> holder;
    std::unique_ptr<PlatformFile> file;
    ASSERT_EQ(openAs(path, R, R, holder), Status::Ok);
    EXPECT_EQ(openAs(path, W, RW, file, PlatformCreation::CreateAlways), Status::InUse);
    EXPECT_TRUE(directory.Read("kept.txt") == "content");
    holder.reset();
    EXPECT_EQ(openAs(path, W, RW, file, PlatformCreation::CreateNew), Status::AlreadyExists);
    EXPECT_EQ(openAs(path, W, RW, file, PlatformCreation::CreateAlways), Status::Ok);
    EXPECT_TRUE(directory.Read("kept.txt").IsEmpty());

    EXPECT_EQ(openAs(directory.Path(), R, RW, file, PlatformCreation::OpenExisting),
              Status::IsDirectory);
    EXPECT_EQ(openAs(directory.Path(), W, RW, file), Status::IsDirectory);
    EXPECT_EQ(openAs(directory.Path("none"), R, RW, file, PlatformCreation::OpenExisting),
              Status::NotFound);
    EXPECT_EQ(openAs(directory.Path("made"), R, RW, file), Status::Ok);
    EXPECT_EQ(openAs(path, None, RW, file), Status::Invalid);
    EXPECT_EQ(file, nullptr);
}

// Locks belong to descriptors, so one opened past the platform stands for another process.
class ForeignLock {
public:
    explicit ForeignLock(const char* path) : m_Descriptor(::open(path, O_RDONLY)) {}
    ForeignLock(const ForeignLock&) = delete;
    ForeignLock& operator=(const ForeignLock&) = delete;
    ~ForeignLock() { ::close(m_Descriptor); }
    bool Take() { return ::flock(m_Descriptor, LOCK_EX | LOCK_NB) == 0; }

private:
    int m_Descriptor;
};

TEST(PlatformTest, OneLockHoldsAgainstOtherProcesses) {
    const TempDirectory directory;
    const SYS_String path = directory.Write("locked.txt", "content");
    const auto isLocked = [&] { return !ForeignLock(path).Take(); };
    std::unique_ptr<PlatformFile> open;
    std::unique_ptr<PlatformFile> first;
    std::unique_ptr<PlatformFile> second;
    ASSERT_EQ(openAs(path, R, RW, open), Status::Ok);
    EXPECT_FALSE(isLocked());
    ASSERT_EQ(openAs(path, R, R, first), Status::Ok);
    ASSERT_EQ(openAs(path, R, R, second), Status::Ok);
    EXPECT_TRUE(isLocked());
    first.reset(); // took the lock, but is not the last that needs it
    EXPECT_TRUE(isLocked());
    EXPECT_EQ(second->Close(), Status::Ok);
    EXPECT_FALSE(isLocked());

    ForeignLock foreign(path);
    ASSERT_TRUE(foreign.Take());
    EXPECT_EQ(openAs(path, R, R, first), Status::InUse);
    EXPECT_EQ(openAs(path, R, RW, first), Status::Ok);
}

TEST(PlatformTest, FilesSeekAndTruncate) {
    const TempDirectory directory;
    std::unique_ptr<PlatformFile> file;
    ASSERT_EQ(openAs(directory.Path("big"), RW, RW, file), Status::Ok);
    __int64 place = 0;
    constexpr __int64 Far = 5'000'000'000;
    ASSERT_EQ(file->Seek(Far, PlatformOrigin::Begin, &place), Status::Ok);
    EXPECT_EQ(place, Far);
    EXPECT_EQ(file->Write("x", 1), Status::Ok);
    __int64 size = 0;
    EXPECT_EQ(file->GetSize(size), Status::Ok);
    EXPECT_EQ(size, Far + 1);
    EXPECT_EQ(file->Seek(-2, PlatformOrigin::Current), Status::Ok);
    char bytes[8];
    std::size_t read = 0;
    EXPECT_EQ(file->Read(bytes, sizeof bytes, read), Status::Ok);
    EXPECT_EQ(read, 2u);
    EXPECT_EQ(file->Seek(3, PlatformOrigin::Begin), Status::Ok);
    EXPECT_EQ(file->Truncate(), Status::Ok);
    EXPECT_EQ(file->Seek(0, PlatformOrigin::End, &place), Status::Ok);
    EXPECT_EQ(place, 3);
    EXPECT_EQ(file->Seek(-1, PlatformOrigin::Begin), Status::Invalid);
    EXPECT_EQ(file->Close(), Status::Ok);
    EXPECT_EQ(file->Close(), Status::Invalid);
    EXPECT_NE(file->Read(bytes, 1, read), Status::Ok);
    EXPECT_NE(file->Write("x", 1), Status::Ok);
}

TEST(PlatformTest, NamesWithBackslashesAndDrives) {
    const TempDirectory directory;
    Platform& platform = GetPlatform();
    EXPECT_EQ(platform.MakeDirectory(directory.Path("sub")), Status::Ok);
    EXPECT_EQ(platform.MakeDirectory(directory.Path("sub")), Status::AlreadyExists);
    directory.Write("sub\\inner.txt", "x");
    EXPECT_TRUE(platform.Exists(directory.Path("sub/inner.txt")));
    EXPECT_TRUE(platform.IsDirectory(directory.Path("sub\\")));
    EXPECT_EQ(platform.DeleteDirectory(directory.Path("sub")), Status::AlreadyExists);
    std::unique_ptr<PlatformFile> file;
    for (const char* name : {"c:file.txt", "X:\\file.txt"})
        EXPECT_EQ(openAs(name, W, RW, file), Status::NotFound) << name;
    for (const char* name : {"", static_cast<const char*>(nullptr)})
        EXPECT_EQ(openAs(name, W, RW, file), Status::Invalid);
}

TEST(PlatformTest, MovesReplaceAndCrossDevices) {
    const TempDirectory directory;
    Platform& platform = GetPlatform();
    const SYS_String from = directory.Write("from", "new");
    const SYS_String to = directory.Write("to", "old");
    EXPECT_EQ(platform.Move(from, to, false), Status::AlreadyExists);
    EXPECT_TRUE(directory.Read("to") == "old");
    EXPECT_EQ(platform.Move(from, from, false), Status::Ok);
    EXPECT_EQ(platform.CopyFile(from, to, false), Status::AlreadyExists);
    EXPECT_EQ(platform.CopyFile(from, from, true), Status::Ok);
    EXPECT_EQ(platform.Move(from, to, true), Status::Ok);
    EXPECT_FALSE(platform.Exists(from));
    EXPECT_TRUE(directory.Read("to") == "new");
    EXPECT_EQ(platform.Move(from, to, true), Status::NotFound);

    EXPECT_EQ(platform.CopyFile(to, from, false), Status::Ok);
    EXPECT_TRUE(directory.Read("from") == "new");
    EXPECT_NE(platform.CopyFile(to, directory.Path(), true), Status::Ok);
    EXPECT_NE(platform.CopyFile(directory.Path(), to, true), Status::Ok);

    struct stat here {};
    struct stat memory {};
    if (::stat(directory.Path(), &here) != 0 || ::stat("/dev/shm", &memory) != 0 ||
        here.st_dev == memory.st_dev)
        GTEST_SKIP() << "only one device";
    const TempDirectory away("/dev/shm");
    away.Write("target", "replaced");
    ASSERT_EQ(::chmod(from, 0640), 0);
    EXPECT_EQ(platform.Move(from, away.Path("target"), true), Status::Ok);
    EXPECT_TRUE(away.Read("target") == "new");
    EXPECT_EQ(::stat(away.Path("target"), &here), 0);
    EXPECT_EQ(here.st_mode & 0777, 0640u);
    EXPECT_FALSE(platform.Exists(from));
    EXPECT_NE(platform.Move(to, away.Path("none/target"), true), Status::Ok);
    EXPECT_TRUE(directory.Read("to") == "new"); // a move that fails keeps the file
    std::vector<PlatformDirectoryEntry> entries;
    platform.ListDirectory(away.Path(), entries);
    EXPECT_EQ(entries.size(), 1u); // and nothing half done stays
}

TEST(PlatformTest, EntriesAreSortedByBytes) {
    const TempDirectory directory;
    for (const char* name : {"b", "B", ".hidden", "\xC3\xA9", "a b"})
        directory.Write(name, "");
    GetPlatform().MakeDirectory(directory.Path("dir"));
    ASSERT_EQ(::symlink("dir", directory.Path("link")), 0);
    std::vector<PlatformDirectoryEntry> entries;
    ASSERT_EQ(GetPlatform().ListDirectory(directory.Path(), entries), Status::Ok);
    SYS_String all;
    for (const PlatformDirectoryEntry& entry : entries)
        all << entry.name << (entry.isDirectory ? "/|" : "|");
    EXPECT_STREQ(all, ".hidden|B|a b|b|dir/|link/|\xC3\xA9|");
    EXPECT_EQ(GetPlatform().ListDirectory(directory.Path("b"), entries), Status::NotDirectory);
    EXPECT_TRUE(entries.empty());
}

TEST(PlatformTest, TemporaryFilesAreNewAndPrivate) {
    const TempDirectory directory;
    SYS_String first;
    SYS_String second;
    ASSERT_EQ(GetPlatform().CreateTempFile(directory.Path(), "p", ".tmp", first), Status::Ok);
    ASSERT_EQ(GetPlatform().CreateTempFile(directory.Path(), nullptr, ".tmp", second), Status::Ok);
    EXPECT_FALSE(first == second);
    EXPECT_EQ(first[0], 'p');
    EXPECT_STREQ(first.Right(4), ".tmp");
    struct stat info {};
    ASSERT_EQ(::stat(directory.Path(first), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0600u);
    EXPECT_EQ(info.st_size, 0);
    EXPECT_EQ(GetPlatform().CreateTempFile(directory.Path("none"), "", ".tmp", first),
              Status::NotFound);

    ::setenv("TMPDIR", "/some/where", 1);
    EXPECT_STREQ(GetPlatform().TempDirectory(), "/some/where");
    ::unsetenv("TMPDIR");
    EXPECT_STREQ(GetPlatform().TempDirectory(), "/tmp");
}

TEST(PlatformTest, TheProcessKnowsItself) {
    Platform& platform = GetPlatform();
    const SYS_String program = platform.ExecutablePath();
    EXPECT_EQ(program[0], '/');
    EXPECT_TRUE(platform.Exists(program));
    EXPECT_FALSE(platform.Arguments().empty());
    SYS_String value;
    EXPECT_FALSE(platform.GetEnvironment("KEL_NO_SUCH_VARIABLE", value));
    const SYS_String before = platform.CurrentDirectory();
    const TempDirectory directory;
    EXPECT_EQ(platform.SetCurrentDirectory(directory.Path()), Status::Ok);
    EXPECT_STREQ(platform.CurrentDirectory(), directory.Path());
    EXPECT_EQ(platform.SetCurrentDirectory("none"), Status::NotFound);
    platform.SetCurrentDirectory(before);
    EXPECT_TRUE(platform.GetLocaleValue(PlatformLocaleGrouping, value));
    EXPECT_STREQ(value, "3;0");
    EXPECT_FALSE(platform.GetLocaleValue(-1, value));

    TestPlatform test;
    test.arguments = {"prog", "a b", "", "tab\there", "plain"};
    EXPECT_STREQ(GetPlatform().CommandLine(), "prog \"a b\" \"\" \"tab\there\" plain");
}

} // namespace
