#pragma once

#include <Platform.h>

#include <string>

namespace kel_ns {

class PosixPlatform final : public Platform {
public:
    PlatformStatus OpenFile(const char* path, const PlatformFileOptions& options,
                            std::unique_ptr<PlatformFile>& file) override;
    PlatformStatus GetInfo(const char* path, PlatformFileInfo& info) override;
    PlatformStatus MakeDirectory(const char* path) override;
    PlatformStatus DeleteDirectory(const char* path) override;
    PlatformStatus DeleteFile(const char* path) override;
    PlatformStatus Move(const char* from, const char* to, bool replace) override;
    PlatformStatus CopyFile(const char* from, const char* to, bool replace) override;
    PlatformStatus ListDirectory(const char* path,
                                 std::vector<PlatformDirectoryEntry>& entries) override;
    SYS_String TempDirectory() override;
    PlatformStatus CreateTempFile(const char* directory, const char* prefix, const char* suffix,
                                  SYS_String& name) override;

    bool GetEnvironment(const char* name, SYS_String& value) override;
    std::vector<SYS_String> Arguments() override;
    SYS_String ExecutablePath() override;
    SYS_String CurrentDirectory() override;
    PlatformStatus SetCurrentDirectory(const char* path) override;
    void Sleep(unsigned milliseconds) override;
    void DebugOutput(const char* text) override;
    bool GetLocaleValue(int id, SYS_String& value) override;
};

// The status that an errno value stands for.
PlatformStatus PosixStatus(int error) noexcept;

// Turns a name as callers write it into one of this system.
PlatformStatus PosixPath(const char* path, std::string& native);

} // namespace kel_ns
