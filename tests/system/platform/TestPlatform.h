#pragma once

#include <Platform.h>

#include <map>
#include <string>

// Stands in for the platform while it lives: answers as the test says, passes on the rest, and
// lets file operations fail from the n-th on.
class TestPlatform : public kel_ns::Platform {
public:
    using Status = kel_ns::PlatformStatus;

    TestPlatform() : m_Real(*kel_ns::SetPlatform(this)) {}
    ~TestPlatform() override { kel_ns::SetPlatform(&m_Real); }

    std::vector<kel_ns::SYS_String> arguments = {"program"};
    std::map<std::string, std::string> environment;
    kel_ns::SYS_String executable = "/opt/tool/bin/drawer.exe";
    kel_ns::SYS_String currentDirectory = "/home/user";
    int writesBeforeFailure = -1;
    int readsBeforeFailure = -1;

    Status OpenFile(const char* path, const kel_ns::PlatformFileOptions& options,
                    std::unique_ptr<kel_ns::PlatformFile>& file) override {
        std::unique_ptr<kel_ns::PlatformFile> real;
        const Status status = m_Real.OpenFile(path, options, real);
        if (status == Status::Ok)
            file = std::make_unique<File>(*this, std::move(real));
        return status;
    }
    Status GetInfo(const char* path, kel_ns::PlatformFileInfo& info) override {
        return m_Real.GetInfo(path, info);
    }
    Status MakeDirectory(const char* path) override { return m_Real.MakeDirectory(path); }
    Status DeleteDirectory(const char* path) override { return m_Real.DeleteDirectory(path); }
    Status DeleteFile(const char* path) override { return m_Real.DeleteFile(path); }
    Status Move(const char* from, const char* to, bool replace) override {
        return m_Real.Move(from, to, replace);
    }
    Status CopyFile(const char* from, const char* to, bool replace) override {
        return m_Real.CopyFile(from, to, replace);
    }
    Status ListDirectory(const char* path,
                         std::vector<kel_ns::PlatformDirectoryEntry>& entries) override {
        return m_Real.ListDirectory(path, entries);
    }
    kel_ns::SYS_String TempDirectory() override { return m_Real.TempDirectory(); }
    Status CreateTempFile(const char* directory, const char* prefix, const char* suffix,
                          kel_ns::SYS_String& name) override {
        return m_Real.CreateTempFile(directory, prefix, suffix, name);
    }
    bool GetEnvironment(const char* name, kel_ns::SYS_String& value) override {
        const auto found = environment.find(name);
        if (found == environment.end())
            return false;
        value = found->second.c_str();
        return true;
    }
    std::vector<kel_ns::SYS_String> Arguments() override { return arguments; }
    kel_ns::SYS_String ExecutablePath() override { return executable; }
    kel_ns::SYS_String CurrentDirectory() override { return currentDirectory; }
    Status SetCurrentDirectory(const char* path) override {
        return m_Real.SetCurrentDirectory(path);
    }
    void Sleep(unsigned) override {}
    void DebugOutput(const char* text) override { m_Real.DebugOutput(text); }
    bool GetLocaleValue(int id, kel_ns::SYS_String& value) override {
        return m_Real.GetLocaleValue(id, value);
    }

private:
    class File : public kel_ns::PlatformFile {
    public:
        File(TestPlatform& platform, std::unique_ptr<kel_ns::PlatformFile> real)
            : m_Platform(platform), m_Real(std::move(real)) {}
        Status Read(void* buffer, std::size_t size, std::size_t& read) override {
            read = 0;
            return fails(m_Platform.readsBeforeFailure) ? Status::Failed
                                                        : m_Real->Read(buffer, size, read);
        }
        Status Write(const void* bytes, std::size_t size) override {
            return fails(m_Platform.writesBeforeFailure) ? Status::NoSpace
                                                         : m_Real->Write(bytes, size);
        }
        Status Seek(__int64 offset, kel_ns::PlatformOrigin origin, __int64* position) override {
            return m_Real->Seek(offset, origin, position);
        }
        Status GetSize(__int64& size) override { return m_Real->GetSize(size); }
        Status Truncate() override { return m_Real->Truncate(); }
        Status Close() override { return m_Real->Close(); }

    private:
        static bool fails(int& left) { return left >= 0 && left-- == 0 && (left = 0, true); }

        TestPlatform& m_Platform;
        std::unique_ptr<kel_ns::PlatformFile> m_Real;
    };

    kel_ns::Platform& m_Real;
};
