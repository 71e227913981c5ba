#include "PosixPlatform.h"

#include <SCL_Assert.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <ctime>

#include <fcntl.h>
#include <unistd.h>

namespace kel_ns {

PlatformFile::~PlatformFile() = default;
Platform::~Platform() = default;

bool Platform::KeepsWaiting() { return true; }

bool Platform::Exists(const char* path) {
    PlatformFileInfo info;
    return GetInfo(path, info) == PlatformStatus::Ok;
}

bool Platform::IsDirectory(const char* path) {
    PlatformFileInfo info;
    return GetInfo(path, info) == PlatformStatus::Ok && info.isDirectory;
}

SYS_String Platform::CommandLine() {
    SYS_String line;
    bool first = true;
    for (const SYS_String& argument : Arguments()) {
        if (!first)
            line += ' ';
        first = false;
        if (argument.IsEmpty() || argument.FindOneOf(" \t") >= 0)
            line << '"' << argument << '"';
        else
            line += argument;
    }
    return line;
}

namespace {

Platform& ownPlatform() {
    static auto* const own = new PosixPlatform; // outlives every static that closes a file
    return *own;
}

Platform* s_Platform = nullptr;

} // namespace

Platform& GetPlatform() { return s_Platform ? *s_Platform : ownPlatform(); }

Platform* SetPlatform(Platform* platform) {
    Platform* old = &GetPlatform();
    s_Platform = platform;
    return old;
}

PlatformStatus PosixStatus(int error) noexcept {
    switch (error) {
    case 0:
        return PlatformStatus::Ok;
    case ENOENT:
        return PlatformStatus::NotFound;
    case EEXIST:
    case ENOTEMPTY:
        return PlatformStatus::AlreadyExists;
    case EACCES:
    case EPERM:
    case EROFS:
        return PlatformStatus::AccessDenied;
    case EISDIR:
        return PlatformStatus::IsDirectory;
    case ENOTDIR:
        return PlatformStatus::NotDirectory;
    case EBUSY:
    case ETXTBSY:
    case EWOULDBLOCK:
        return PlatformStatus::InUse;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return PlatformStatus::NoSpace;
    case EINVAL:
    case EBADF:
    case ESPIPE:
        return PlatformStatus::Invalid;
    default:
        return PlatformStatus::Failed;
    }
}

PlatformStatus PosixPath(const char* path, std::string& native) {
    if (!path || *path == '\0')
        return PlatformStatus::Invalid;
    const char letter = SYS_ToLower(path[0]);
    if (letter >= 'a' && letter <= 'z' && path[1] == ':')
        return PlatformStatus::NotFound; // there are no drives here
    native = path;
    std::replace(native.begin(), native.end(), '\\', '/');
    return PlatformStatus::Ok;
}

bool PosixPlatform::GetEnvironment(const char* name, SYS_String& value) {
    const char* found = name ? std::getenv(name) : nullptr;
    if (!found)
        return false;
    value = found;
    return true;
}

std::vector<SYS_String> PosixPlatform::Arguments() {
    // The system's own record: a library has no part in the call of main.
    std::vector<SYS_String> arguments;
    const int descriptor = ::open("/proc/self/cmdline", O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
        return arguments;
    std::string text;
    char buffer[4096];
    for (;;) {
        const ssize_t got = ::read(descriptor, buffer, sizeof buffer);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            break;
        text.append(buffer, static_cast<std::size_t>(got));
    }
    ::close(descriptor);
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\0', start), text.size());
        arguments.emplace_back(text.data() + start, end - start);
        start = end + 1;
    }
    return arguments;
}

SYS_String PosixPlatform::ExecutablePath() {
    std::string path(256, '\0');
    for (;;) {
        const ssize_t length = ::readlink("/proc/self/exe", path.data(), path.size());
        if (length < 0)
            return {};
        if (static_cast<std::size_t>(length) < path.size())
            return SYS_String(path.data(), static_cast<std::size_t>(length));
        path.resize(path.size() * 2);
    }
}

SYS_String PosixPlatform::CurrentDirectory() {
    std::string path(256, '\0');
    while (!::getcwd(path.data(), path.size())) {
        if (errno != ERANGE)
            return {};
        path.resize(path.size() * 2);
    }
    return SYS_String(path.c_str());
}

PlatformStatus PosixPlatform::SetCurrentDirectory(const char* path) {
    std::string native;
    const PlatformStatus status = PosixPath(path, native);
    if (status != PlatformStatus::Ok)
        return status;
    return ::chdir(native.c_str()) == 0 ? PlatformStatus::Ok : PosixStatus(errno);
}

void PosixPlatform::Sleep(unsigned milliseconds) {
    timespec rest{};
    rest.tv_sec = static_cast<time_t>(milliseconds / 1000);
    rest.tv_nsec = static_cast<long>(milliseconds % 1000) * 1'000'000;
    while (::nanosleep(&rest, &rest) != 0 && errno == EINTR) {
    }
}

void PosixPlatform::DebugOutput(const char* text) { SCL_DebugOutput(text); }

bool PosixPlatform::GetLocaleValue(int id, SYS_String& value) {
    // Fixed, so that a macro prints the same on every machine.
    switch (id) {
    case PlatformLocaleThousands:
        value = ",";
        return true;
    case PlatformLocaleGrouping:
        value = "3;0";
        return true;
    case PlatformLocaleDigits:
        value = "2";
        return true;
    case PlatformLocaleLeadingZero:
    case PlatformLocaleNegativeNumber:
        value = "1";
        return true;
    default:
        return false;
    }
}

} // namespace kel_ns
