#include "PosixPlatform.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kel_ns {

namespace {

PlatformStatus lastStatus(int result) {
    return result == 0 ? PlatformStatus::Ok : PosixStatus(errno);
}

bool isDirectoryEntry(const std::string& directory, const dirent& entry) {
    if (entry.d_type == DT_DIR)
        return true;
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN)
        return false;
    struct stat info {};
    const std::string path = directory + '/' + entry.d_name;
    return ::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

__int64 createdTime(const std::string& path, const struct stat& found) {
#ifdef STATX_BTIME
    struct statx more {};
    if (::statx(AT_FDCWD, path.c_str(), 0, STATX_BTIME, &more) == 0 &&
        (more.stx_mask & STATX_BTIME) != 0 && more.stx_btime.tv_sec != 0)
        return more.stx_btime.tv_sec;
#endif
    return std::min(found.st_mtime, found.st_ctime);
}

PlatformStatus copyContent(PlatformFile& from, PlatformFile& to) {
    std::vector<char> buffer(1 << 16);
    for (;;) {
        std::size_t got = 0;
        PlatformStatus status = from.Read(buffer.data(), buffer.size(), got);
        if (status != PlatformStatus::Ok || got == 0)
            return status;
        status = to.Write(buffer.data(), got);
        if (status != PlatformStatus::Ok)
            return status;
    }
}

bool isSameFile(const struct stat& a, const struct stat& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

// Copies beside the target first, so that a copy that fails half way leaves the target as it was.
PlatformStatus copyRegular(Platform& platform, const std::string& from, const std::string& to,
                           mode_t mode) {
    const std::size_t slash = to.rfind('/');
    const std::string directory = slash == std::string::npos ? "." : to.substr(0, slash + 1);
    SYS_String name;
    PlatformStatus status = platform.CreateTempFile(directory.c_str(), ".copy", "", name);
    if (status != PlatformStatus::Ok)
        return status;
    const std::string half = directory + '/' + name.c_str();
    std::unique_ptr<PlatformFile> source;
    std::unique_ptr<PlatformFile> target;
    PlatformFileOptions writing;
    writing.access = PlatformAccessWrite;
    status = platform.OpenFile(from.c_str(), {}, source);
    if (status == PlatformStatus::Ok)
        status = platform.OpenFile(half.c_str(), writing, target);
    if (status == PlatformStatus::Ok)
        status = copyContent(*source, *target);
    if (status == PlatformStatus::Ok)
        status = target->Close();
    if (status == PlatformStatus::Ok)
        status = lastStatus(::chmod(half.c_str(), mode & 07777));
    if (status == PlatformStatus::Ok)
        status = lastStatus(std::rename(half.c_str(), to.c_str()));
    if (status != PlatformStatus::Ok)
        ::unlink(half.c_str());
    return status;
}

} // namespace

PlatformStatus PosixPlatform::GetInfo(const char* path, PlatformFileInfo& info) {
    std::string native;
    const PlatformStatus status = PosixPath(path, native);
    if (status != PlatformStatus::Ok)
        return status;
    struct stat found {};
    if (::stat(native.c_str(), &found) != 0)
        return PosixStatus(errno);
    info.isDirectory = S_ISDIR(found.st_mode);
    info.size = found.st_size;
    info.modified = found.st_mtime;
    info.accessed = found.st_atime;
    info.created = createdTime(native, found);
    return PlatformStatus::Ok;
}

PlatformStatus PosixPlatform::MakeDirectory(const char* path) {
    std::string native;
    const PlatformStatus status = PosixPath(path, native);
    return status == PlatformStatus::Ok ? lastStatus(::mkdir(native.c_str(), 0777)) : status;
}

PlatformStatus PosixPlatform::DeleteDirectory(const char* path) {
    std::string native;
    const PlatformStatus status = PosixPath(path, native);
    return status == PlatformStatus::Ok ? lastStatus(::rmdir(native.c_str())) : status;
}

PlatformStatus PosixPlatform::DeleteFile(const char* path) {
    std::string native;
    const PlatformStatus status = PosixPath(path, native);
    return status == PlatformStatus::Ok ? lastStatus(::unlink(native.c_str())) : status;
}

PlatformStatus PosixPlatform::Move(const char* from, const char* to, bool replace) {
    std::string source;
    std::string target;
    PlatformStatus status = PosixPath(from, source);
    if (status == PlatformStatus::Ok)
        status = PosixPath(to, target);
    if (status != PlatformStatus::Ok)
        return status;
    struct stat sourceInfo {};
    struct stat targetInfo {};
    if (::lstat(source.c_str(), &sourceInfo) != 0)
        return PosixStatus(errno);
    const bool present = ::lstat(target.c_str(), &targetInfo) == 0;
    if (present && !replace && !isSameFile(sourceInfo, targetInfo))
        return PlatformStatus::AlreadyExists;
    if (std::rename(source.c_str(), target.c_str()) == 0)
        return PlatformStatus::Ok;
    if (errno != EXDEV || !S_ISREG(sourceInfo.st_mode))
        return PosixStatus(errno);
    status = copyRegular(*this, source, target, sourceInfo.st_mode);
    return status == PlatformStatus::Ok ? lastStatus(::unlink(source.c_str())) : status;
}

PlatformStatus PosixPlatform::CopyFile(const char* from, const char* to, bool replace) {
    std::string source;
    std::string target;
    PlatformStatus status = PosixPath(from, source);
    if (status == PlatformStatus::Ok)
        status = PosixPath(to, target);
    if (status != PlatformStatus::Ok)
        return status;
    struct stat sourceInfo {};
    struct stat targetInfo {};
    if (::stat(source.c_str(), &sourceInfo) != 0)
        return PosixStatus(errno);
    if (S_ISDIR(sourceInfo.st_mode))
        return PlatformStatus::IsDirectory;
    if (::stat(target.c_str(), &targetInfo) == 0) {
        if (S_ISDIR(targetInfo.st_mode))
            return PlatformStatus::IsDirectory;
        if (!replace)
            return PlatformStatus::AlreadyExists;
        if (isSameFile(sourceInfo, targetInfo))
            return PlatformStatus::Ok;
    }
    return copyRegular(*this, source, target, sourceInfo.st_mode);
}

PlatformStatus PosixPlatform::ListDirectory(const char* path,
                                            std::vector<PlatformDirectoryEntry>& entries) {
    entries.clear();
    std::string native;
    const PlatformStatus status = PosixPath(path, native);
    if (status != PlatformStatus::Ok)
        return status;
    const auto close = [](DIR* open) { ::closedir(open); };
    std::unique_ptr<DIR, decltype(close)> directory(::opendir(native.c_str()), close);
    if (!directory)
        return PosixStatus(errno);
    for (;;) {
        errno = 0;
        const dirent* entry = ::readdir(directory.get());
        if (!entry)
            break;
        const SYS_String name(entry->d_name);
        if (!(name == ".") && !(name == ".."))
            entries.push_back({name, isDirectoryEntry(native, *entry)});
    }
    if (errno != 0) {
        const PlatformStatus failure = PosixStatus(errno);
        entries.clear();
        return failure;
    }
    std::sort(entries.begin(), entries.end(),
              [](const auto& a, const auto& b) { return a.name.Compare(b.name) < 0; });
    return PlatformStatus::Ok;
}

SYS_String PosixPlatform::TempDirectory() {
    SYS_String directory;
    if (GetEnvironment("TMPDIR", directory) && !directory.IsEmpty())
        return directory;
    return "/tmp";
}

PlatformStatus PosixPlatform::CreateTempFile(const char* directory, const char* prefix,
                                             const char* suffix, SYS_String& name) {
    std::string path;
    const PlatformStatus status = PosixPath(directory, path);
    if (status != PlatformStatus::Ok)
        return status;
    if (path.back() != '/')
        path += '/';
    const std::size_t start = path.size();
    const std::string ending = suffix ? suffix : "";
    path += prefix ? prefix : "";
    path += "XXXXXX";
    path += ending;
    const int descriptor = ::mkostemps(path.data(), static_cast<int>(ending.size()), O_CLOEXEC);
    if (descriptor < 0)
        return PosixStatus(errno);
    ::close(descriptor);
    name = SYS_String(path.data() + start, path.size() - start);
    return PlatformStatus::Ok;
}

} // namespace kel_ns
