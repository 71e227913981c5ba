#include <PlatformLayer.h>

#include <utility>

namespace kel_ns {

PlatformFileLayer::PlatformFileLayer(std::unique_ptr<PlatformFile> file)
    : m_File(std::move(file)) {}

PlatformFileLayer::~PlatformFileLayer() = default;

PlatformStatus PlatformFileLayer::Read(void* buffer, std::size_t size, std::size_t& read) {
    return m_File->Read(buffer, size, read);
}

PlatformStatus PlatformFileLayer::Write(const void* bytes, std::size_t size) {
    return m_File->Write(bytes, size);
}

PlatformStatus PlatformFileLayer::Seek(__int64 offset, PlatformOrigin origin, __int64* position) {
    return m_File->Seek(offset, origin, position);
}

PlatformStatus PlatformFileLayer::GetSize(__int64& size) { return m_File->GetSize(size); }

PlatformStatus PlatformFileLayer::Truncate() { return m_File->Truncate(); }

PlatformStatus PlatformFileLayer::Close() { return m_File->Close(); }

// -----------------------------------------------------------------------------------------------

PlatformLayer::PlatformLayer() : PlatformLayer(GetPlatform()) {}

PlatformLayer::PlatformLayer(Platform& below) : m_Below(below) {}

PlatformLayer::~PlatformLayer() = default;

PlatformStatus PlatformLayer::OpenFile(const char* path, const PlatformFileOptions& options,
                                       std::unique_ptr<PlatformFile>& file) {
    return m_Below.OpenFile(path, options, file);
}

PlatformStatus PlatformLayer::GetInfo(const char* path, PlatformFileInfo& info) {
    return m_Below.GetInfo(path, info);
}

PlatformStatus PlatformLayer::MakeDirectory(const char* path) {
    return m_Below.MakeDirectory(path);
}

PlatformStatus PlatformLayer::DeleteDirectory(const char* path) {
    return m_Below.DeleteDirectory(path);
}

PlatformStatus PlatformLayer::DeleteFile(const char* path) { return m_Below.DeleteFile(path); }

PlatformStatus PlatformLayer::Move(const char* from, const char* to, bool replace) {
    return m_Below.Move(from, to, replace);
}

PlatformStatus PlatformLayer::CopyFile(const char* from, const char* to, bool replace) {
    return m_Below.CopyFile(from, to, replace);
}

PlatformStatus PlatformLayer::ListDirectory(const char* path,
                                            std::vector<PlatformDirectoryEntry>& entries) {
    return m_Below.ListDirectory(path, entries);
}

SYS_String PlatformLayer::TempDirectory() { return m_Below.TempDirectory(); }

PlatformStatus PlatformLayer::CreateTempFile(const char* directory, const char* prefix,
                                             const char* suffix, SYS_String& name) {
    return m_Below.CreateTempFile(directory, prefix, suffix, name);
}

bool PlatformLayer::GetEnvironment(const char* name, SYS_String& value) {
    return m_Below.GetEnvironment(name, value);
}

std::vector<SYS_String> PlatformLayer::Arguments() { return m_Below.Arguments(); }

SYS_String PlatformLayer::ExecutablePath() { return m_Below.ExecutablePath(); }

SYS_String PlatformLayer::CurrentDirectory() { return m_Below.CurrentDirectory(); }

PlatformStatus PlatformLayer::SetCurrentDirectory(const char* path) {
    return m_Below.SetCurrentDirectory(path);
}

void PlatformLayer::Sleep(unsigned milliseconds) { m_Below.Sleep(milliseconds); }

bool PlatformLayer::KeepsWaiting() { return m_Below.KeepsWaiting(); }

void PlatformLayer::DebugOutput(const char* text) { m_Below.DebugOutput(text); }

bool PlatformLayer::GetLocaleValue(int id, SYS_String& value) {
    return m_Below.GetLocaleValue(id, value);
}

} // namespace kel_ns
