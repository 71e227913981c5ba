#pragma once

#include <PlatformLayer.h>

#include <map>
#include <string>
#include <utility>

// Stands in for the platform while it lives: answers as the test says, passes on the rest, and lets
// operations on files fail, from the n-th on or just the n-th. Its files may outlive it if they are
// only closed then.
class TestPlatform : public kel_ns::PlatformLayer {
public:
    using Status = kel_ns::PlatformStatus;

    /// What may fail, each with a count of its own; `any` counts all operations on files.
    struct Fault {
        int left = -1; ///< operations before the failure; below 0 there is none
        bool once = false;

        bool Strikes() {
            if (left != 0) {
                left -= left > 0;
                return false;
            }
            if (once)
                left = -1;
            return true;
        }
    };

    TestPlatform() { kel_ns::SetPlatform(this); }
    ~TestPlatform() override { kel_ns::SetPlatform(&Below()); }

    std::vector<kel_ns::SYS_String> arguments = {"program"};
    std::map<std::string, std::string> environment;
    kel_ns::SYS_String executable = "/opt/tool/bin/drawer.exe";
    kel_ns::SYS_String currentDirectory = "/home/user";
    Fault any;
    Fault writes;
    Fault reads;

    Status OpenFile(const char* path, const kel_ns::PlatformFileOptions& options,
                    std::unique_ptr<kel_ns::PlatformFile>& file) override {
        file.reset();
        if (any.Strikes())
            return Status::Failed;
        std::unique_ptr<kel_ns::PlatformFile> real;
        const Status status = Below().OpenFile(path, options, real);
        if (status == Status::Ok)
            file = std::make_unique<File>(*this, std::move(real));
        return status;
    }
    Status GetInfo(const char* path, kel_ns::PlatformFileInfo& info) override {
        return any.Strikes() ? Status::Failed : Below().GetInfo(path, info);
    }
    Status MakeDirectory(const char* path) override {
        return any.Strikes() ? Status::NoSpace : Below().MakeDirectory(path);
    }
    Status Move(const char* from, const char* to, bool replace) override {
        return any.Strikes() ? Status::Failed : Below().Move(from, to, replace);
    }
    Status ListDirectory(const char* path,
                         std::vector<kel_ns::PlatformDirectoryEntry>& entries) override {
        return any.Strikes() ? Status::Failed : Below().ListDirectory(path, entries);
    }
    Status CreateTempFile(const char* directory, const char* prefix, const char* suffix,
                          kel_ns::SYS_String& name) override {
        return any.Strikes() ? Status::NoSpace
                             : Below().CreateTempFile(directory, prefix, suffix, name);
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
    void Sleep(unsigned) override {}

private:
    class File : public kel_ns::PlatformFileLayer {
    public:
        File(TestPlatform& platform, std::unique_ptr<kel_ns::PlatformFile> real)
            : PlatformFileLayer(std::move(real)), m_Platform(platform) {}
        Status Read(void* buffer, std::size_t size, std::size_t& read) override {
            read = 0;
            return m_Platform.reads.Strikes() || m_Platform.any.Strikes()
                       ? Status::Failed
                       : Below().Read(buffer, size, read);
        }
        Status Write(const void* bytes, std::size_t size) override {
            return m_Platform.writes.Strikes() || m_Platform.any.Strikes()
                       ? Status::NoSpace
                       : Below().Write(bytes, size);
        }
        Status Seek(__int64 offset, kel_ns::PlatformOrigin origin, __int64* position) override {
            return m_Platform.any.Strikes() ? Status::Failed
                                            : Below().Seek(offset, origin, position);
        }
        Status GetSize(__int64& size) override {
            return m_Platform.any.Strikes() ? Status::Failed : Below().GetSize(size);
        }

    private:
        TestPlatform& m_Platform;
    };
};
