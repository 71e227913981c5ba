#pragma once

#include <SCL_Types.h>
#include <SYS_String.h>

#include <cstddef>
#include <memory>
#include <vector>

// Everything that the engine asks of the operating system. Nothing else includes system headers,
// so a host or a test can put its own Platform in the place of the real one.

namespace kel_ns {

/// How an operation ended. No operation below throws, except std::bad_alloc for lack of memory.
enum class PlatformStatus {
    Ok,
    NotFound,      ///< the file, or a directory on the way to it
    AlreadyExists, ///< and was not to be replaced
    AccessDenied,
    IsDirectory,  ///< where a file is wanted
    NotDirectory, ///< where a directory is wanted
    InUse,        ///< other streams do not share the file in this way
    NoSpace,
    Invalid, ///< an empty name, a place before the start of a file or in a pipe, a closed file
    Failed   ///< anything else
};

/// What a stream does with a file, and what it lets other streams do. Combined with `|`.
enum PlatformAccess : unsigned {
    PlatformAccessNone = 0,
    PlatformAccessRead = 1,
    PlatformAccessWrite = 2,
    PlatformAccessReadWrite = 3
};

/// Which file an open accepts.
enum class PlatformCreation {
    OpenExisting,
    OpenAlways,   ///< makes a missing one
    CreateAlways, ///< makes a missing one, empties one that is there
    CreateNew     ///< fails if there is one
};

struct PlatformFileOptions {
    unsigned access = PlatformAccessRead;
    /// What others may do meanwhile. Two streams of this process get along if each shares what the
    /// other does. A stream that does not share everything also locks the file against such
    /// streams of other processes.
    unsigned share = PlatformAccessReadWrite;
    PlatformCreation creation = PlatformCreation::OpenExisting;
    /// Every write goes to the end, wherever that is by then.
    bool append = false;
};

enum class PlatformOrigin { Begin, Current, End };

/// An open file; its end closes it. Operations on a closed one give Invalid.
class KEL_MCR_API PlatformFile {
public:
    virtual ~PlatformFile();

    /// Reads up to `size` bytes; `read` is below `size` only at the end or on failure, and for
    /// pipes and terminals when no more has arrived.
    virtual PlatformStatus Read(void* buffer, std::size_t size, std::size_t& read) = 0;
    /// Writes all the bytes, or fails with some of them written.
    virtual PlatformStatus Write(const void* bytes, std::size_t size) = 0;
    /// `position`, if asked for, gets the new place from the start of the file.
    virtual PlatformStatus Seek(__int64 offset, PlatformOrigin origin,
                                __int64* position = nullptr) = 0;
    virtual PlatformStatus GetSize(__int64& size) = 0;
    /// Makes the file end at the current place.
    virtual PlatformStatus Truncate() = 0;
    virtual PlatformStatus Close() = 0;

protected:
    PlatformFile() = default;
    PlatformFile(const PlatformFile&) = delete;
    PlatformFile& operator=(const PlatformFile&) = delete;
};

struct PlatformFileInfo {
    bool isDirectory = false;
    __int64 size = 0;
    // Seconds since 1970, UTC.
    __int64 modified = 0;
    __int64 accessed = 0;
    __int64 created = 0; ///< the earliest time known, if the system does not keep this one
};

struct PlatformDirectoryEntry {
    SYS_String name;
    bool isDirectory = false;
};

/// Values of the user's conventions for numbers, with the numbers that callers know them by.
enum PlatformLocaleValue {
    PlatformLocaleThousands = 0x0F,       ///< between groups of digits
    PlatformLocaleGrouping = 0x10,        ///< sizes of the groups, such as "3;0"
    PlatformLocaleDigits = 0x11,          ///< digits behind the point
    PlatformLocaleLeadingZero = 0x12,     ///< "1": a zero before the point
    PlatformLocaleNegativeNumber = 0x1010 ///< the form of negative numbers, by its number
};

/// The operating system. File names are bytes and end at the first NUL; a backslash in one counts
/// as a slash, and a name that begins with a drive ("X:") names nothing. Links are followed.
class KEL_MCR_API Platform {
public:
    virtual ~Platform();

    // --- files and directories ---

    /// On failure `file` is null, and a file that was there is as it was.
    virtual PlatformStatus OpenFile(const char* path, const PlatformFileOptions& options,
                                    std::unique_ptr<PlatformFile>& file) = 0;
    virtual PlatformStatus GetInfo(const char* path, PlatformFileInfo& info) = 0;
    virtual PlatformStatus MakeDirectory(const char* path) = 0;
    /// Removes an empty directory.
    virtual PlatformStatus DeleteDirectory(const char* path) = 0;
    virtual PlatformStatus DeleteFile(const char* path) = 0;
    /// Moves a file, also to another device, or a directory within its device.
    virtual PlatformStatus Move(const char* from, const char* to, bool replace) = 0;
    virtual PlatformStatus CopyFile(const char* from, const char* to, bool replace) = 0;
    /// All entries but "." and "..", sorted by their bytes.
    virtual PlatformStatus ListDirectory(const char* path,
                                         std::vector<PlatformDirectoryEntry>& entries) = 0;
    virtual SYS_String TempDirectory() = 0;
    /// Makes a new empty file that only this user may read, its name unused before: prefix, some
    /// letters, suffix. `name` gets the name without directory.
    virtual PlatformStatus CreateTempFile(const char* directory, const char* prefix,
                                          const char* suffix, SYS_String& name) = 0;

    bool Exists(const char* path);
    bool IsDirectory(const char* path);

    // --- the process ---

    /// False if there is no such variable.
    virtual bool GetEnvironment(const char* name, SYS_String& value) = 0;
    /// The arguments of the process; element 0 is the program as it was called.
    virtual std::vector<SYS_String> Arguments() = 0;
    /// Empty if the system cannot tell.
    virtual SYS_String ExecutablePath() = 0;
    virtual SYS_String CurrentDirectory() = 0;
    virtual PlatformStatus SetCurrentDirectory(const char* path) = 0;
    virtual void Sleep(unsigned milliseconds) = 0;
    /// Asked when a signal has woken an operation that waits, such as for what a pipe is to bring.
    /// False ends it as Failed; true, the answer unless it is overridden, lets it go on waiting.
    virtual bool KeepsWaiting();
    virtual void DebugOutput(const char* text) = 0;
    /// False for a value that this system does not know.
    virtual bool GetLocaleValue(int id, SYS_String& value) = 0;

    /// The arguments joined by blanks; one that is empty or has a blank or tab stands in quotes.
    SYS_String CommandLine();

protected:
    Platform() = default;
    Platform(const Platform&) = delete;
    Platform& operator=(const Platform&) = delete;
};

/// The platform in use: this system's own unless another was set.
KEL_MCR_API Platform& GetPlatform();

/// Puts another platform in place and returns the one before it. The caller keeps it alive while
/// it is in use. Null brings back this system's own.
KEL_MCR_API Platform* SetPlatform(Platform* platform);

} // namespace kel_ns
