#pragma once

#include <Platform.h>

namespace kel_ns {

/// An open file that passes everything on to another one, which it owns. Derive from it to change
/// single operations.
class KEL_MCR_API PlatformFileLayer : public PlatformFile {
public:
    explicit PlatformFileLayer(std::unique_ptr<PlatformFile> file);
    ~PlatformFileLayer() override;

    PlatformStatus Read(void* buffer, std::size_t size, std::size_t& read) override;
    PlatformStatus Write(const void* bytes, std::size_t size) override;
    PlatformStatus Seek(__int64 offset, PlatformOrigin origin, __int64* position) override;
    PlatformStatus GetSize(__int64& size) override;
    PlatformStatus Truncate() override;
    PlatformStatus Close() override;

protected:
    PlatformFile& Below() const { return *m_File; }

private:
    std::unique_ptr<PlatformFile> m_File;
};

/// A platform that passes everything on to another one, at first the one in use when it is made. A
/// host that wants to answer single questions itself, such as where temporary files go, derives
/// from it, overrides those, and puts its object in place with SetPlatform.
class KEL_MCR_API PlatformLayer : public Platform {
public:
    PlatformLayer();
    /// `below` must outlive this.
    explicit PlatformLayer(Platform& below);
    ~PlatformLayer() override;

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
    bool KeepsWaiting() override;
    void DebugOutput(const char* text) override;
    bool GetLocaleValue(int id, SYS_String& value) override;

protected:
    Platform& Below() const { return m_Below; }

private:
    Platform& m_Below;
};

} // namespace kel_ns
