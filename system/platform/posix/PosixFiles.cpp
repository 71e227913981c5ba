#include "PosixPlatform.h"

#include <algorithm>
#include <cerrno>
#include <list>
#include <map>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kel_ns {

namespace {

struct Stream {
    unsigned access;
    unsigned share;
};

// All streams of this process that are open on one file, under whatever names.
struct OpenFileRecord {
    std::list<Stream> streams;
    int lock = -1; // holds the lock against other processes while any stream shares less than all
};

using FileKey = std::pair<dev_t, ino_t>;

std::map<FileKey, OpenFileRecord>& openFiles() {
    static auto* const all = new std::map<FileKey, OpenFileRecord>;
    return *all;
}

bool sharesAll(unsigned share) {
    return (share & PlatformAccessReadWrite) == PlatformAccessReadWrite;
}

bool getAlong(const Stream& a, const Stream& b) {
    return (a.access & ~b.share) == 0 && (b.access & ~a.share) == 0;
}

// The lock belongs to a descriptor of its own, which goes on when the stream that took it closes
// before others that need it.
PlatformStatus takeLock(OpenFileRecord& record, int descriptor) {
    const int lock = ::fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
    if (lock < 0)
        return PosixStatus(errno);
    if (::flock(lock, LOCK_EX | LOCK_NB) != 0) {
        const int error = errno;
        ::close(lock);
        // Some file systems know no locks: then there is nothing to refuse by.
        return error == ENOLCK || error == EOPNOTSUPP ? PlatformStatus::Ok : PosixStatus(error);
    }
    record.lock = lock;
    return PlatformStatus::Ok;
}

void dropLock(OpenFileRecord& record) {
    if (record.lock < 0)
        return;
    ::flock(record.lock, LOCK_UN);
    ::close(std::exchange(record.lock, -1));
}

// A place in the record of a file. Its end takes the stream out again.
class Share {
public:
    Share() = default;
    Share(const Share&) = delete;
    Share& operator=(const Share&) = delete;
    ~Share() { Leave(); }

    PlatformStatus Join(int descriptor, FileKey key, Stream stream) {
        OpenFileRecord& record = openFiles()[key];
        for (const Stream& other : record.streams)
            if (!getAlong(stream, other))
                return PlatformStatus::InUse;
        m_Stream = record.streams.insert(record.streams.end(), stream);
        m_Key = key;
        m_Joined = true;
        if (sharesAll(stream.share) || record.lock >= 0)
            return PlatformStatus::Ok;
        const PlatformStatus status = takeLock(record, descriptor);
        if (status != PlatformStatus::Ok)
            Leave();
        return status;
    }

    void Leave() {
        if (!std::exchange(m_Joined, false))
            return;
        auto found = openFiles().find(m_Key);
        std::list<Stream>& streams = found->second.streams;
        streams.erase(m_Stream);
        if (std::all_of(streams.begin(), streams.end(),
                        [](const Stream& each) { return sharesAll(each.share); }))
            dropLock(found->second);
        if (streams.empty())
            openFiles().erase(found);
    }

private:
    FileKey m_Key{};
    std::list<Stream>::iterator m_Stream;
    bool m_Joined = false;
};

// After a system call that failed: whether only a signal is to blame, and nobody minds.
bool triesAgain() { return errno == EINTR && GetPlatform().KeepsWaiting(); }

class PosixFile final : public PlatformFile {
public:
    explicit PosixFile(int descriptor) : m_Descriptor(descriptor) {}
    ~PosixFile() override { closeNow(); }

    // Before anything is changed: a refused open must leave the file as it was.
    PlatformStatus Admit(const PlatformFileOptions& options) {
        struct stat info {};
        if (::fstat(m_Descriptor, &info) != 0)
            return PosixStatus(errno);
        if (S_ISDIR(info.st_mode))
            return PlatformStatus::IsDirectory;
        if (!S_ISREG(info.st_mode))
            return PlatformStatus::Ok; // pipes and devices have no content to protect
        return m_Share.Join(m_Descriptor, {info.st_dev, info.st_ino},
                            {options.access, options.share});
    }

    // Devices and pipes do not mind being emptied.
    PlatformStatus Empty() {
        if (::ftruncate(m_Descriptor, 0) == 0 || errno == EINVAL)
            return PlatformStatus::Ok;
        return PosixStatus(errno);
    }

    PlatformStatus Read(void* buffer, std::size_t size, std::size_t& read) override {
        read = 0;
        char* to = static_cast<char*>(buffer);
        while (read < size) {
            const ssize_t got = ::read(m_Descriptor, to + read, size - read);
            if (got < 0 && triesAgain())
                continue;
            if (got < 0)
                return PosixStatus(errno);
            read += static_cast<std::size_t>(got);
            // A short answer is the end, or all that a pipe has for now.
            break;
        }
        return PlatformStatus::Ok;
    }

    PlatformStatus Write(const void* bytes, std::size_t size) override {
        const char* from = static_cast<const char*>(bytes);
        while (size > 0) {
            const ssize_t written = ::write(m_Descriptor, from, size);
            if (written < 0 && triesAgain())
                continue;
            if (written < 0)
                return PosixStatus(errno);
            from += written;
            size -= static_cast<std::size_t>(written);
        }
        return m_Descriptor < 0 ? PlatformStatus::Invalid : PlatformStatus::Ok;
    }

    PlatformStatus Seek(__int64 offset, PlatformOrigin origin, __int64* position) override {
        const int whence = origin == PlatformOrigin::Begin     ? SEEK_SET
                           : origin == PlatformOrigin::Current ? SEEK_CUR
                                                               : SEEK_END;
        const off_t place = ::lseek(m_Descriptor, static_cast<off_t>(offset), whence);
        if (place < 0)
            return PosixStatus(errno);
        if (position)
            *position = place;
        return PlatformStatus::Ok;
    }

    PlatformStatus GetSize(__int64& size) override {
        struct stat info {};
        if (::fstat(m_Descriptor, &info) != 0)
            return PosixStatus(errno);
        size = info.st_size;
        return PlatformStatus::Ok;
    }

    PlatformStatus Truncate() override {
        const off_t place = ::lseek(m_Descriptor, 0, SEEK_CUR);
        if (place < 0 || ::ftruncate(m_Descriptor, place) != 0)
            return PosixStatus(errno);
        return PlatformStatus::Ok;
    }

    PlatformStatus Close() override { return closeNow(); }

private:
    PlatformStatus closeNow() {
        if (m_Descriptor < 0)
            return PlatformStatus::Invalid;
        m_Share.Leave();
        const int result = ::close(std::exchange(m_Descriptor, -1));
        return result == 0 || errno == EINTR ? PlatformStatus::Ok : PosixStatus(errno);
    }

    int m_Descriptor;
    Share m_Share;
};

int flagsFor(const PlatformFileOptions& options) {
    int flags = O_CLOEXEC | O_NOCTTY;
    if ((options.access & PlatformAccessReadWrite) == PlatformAccessReadWrite)
        flags |= O_RDWR;
    else
        flags |= (options.access & PlatformAccessWrite) != 0 ? O_WRONLY : O_RDONLY;
    if (options.append)
        flags |= O_APPEND;
    // Emptying comes later, when it is clear that the stream may have the file.
    if (options.creation != PlatformCreation::OpenExisting)
        flags |= O_CREAT;
    if (options.creation == PlatformCreation::CreateNew)
        flags |= O_EXCL;
    return flags;
}

} // namespace

PlatformStatus PosixPlatform::OpenFile(const char* path, const PlatformFileOptions& options,
                                       std::unique_ptr<PlatformFile>& file) {
    file.reset();
    std::string native;
    PlatformStatus status = PosixPath(path, native);
    if (status != PlatformStatus::Ok)
        return status;
    if ((options.access & PlatformAccessReadWrite) == 0)
        return PlatformStatus::Invalid;
    int descriptor;
    do {
        descriptor = ::open(native.c_str(), flagsFor(options), 0666);
    } while (descriptor < 0 && triesAgain());
    if (descriptor < 0)
        return PosixStatus(errno);
    std::unique_ptr<PosixFile> opened;
    try {
        opened = std::make_unique<PosixFile>(descriptor);
    } catch (...) {
        ::close(descriptor);
        throw;
    }
    status = opened->Admit(options);
    if (status == PlatformStatus::Ok && options.creation == PlatformCreation::CreateAlways)
        status = opened->Empty();
    if (status == PlatformStatus::Ok)
        file = std::move(opened);
    return status;
}

} // namespace kel_ns
