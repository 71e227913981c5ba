#pragma once

#include <Platform.h>
#include <SFM_File.h>

#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

// A new directory that goes with all that is in it.
class TempDirectory {
public:
    explicit TempDirectory(const char* within = "/tmp") {
        std::string pattern = std::string(within) + "/kelXXXXXX";
        m_Path = ::mkdtemp(pattern.data()) ? pattern : "";
        EXPECT_FALSE(m_Path.empty());
    }
    TempDirectory(const TempDirectory&) = delete;
    TempDirectory& operator=(const TempDirectory&) = delete;
    ~TempDirectory() { removeAll(m_Path); }

    kel_ns::SYS_String Path(const char* name) const { return (m_Path + "/" + name).c_str(); }
    const char* Path() const { return m_Path.c_str(); }

    kel_ns::SYS_String Write(const char* name, const kel_ns::SYS_String& text) const {
        kel_ns::SFM_File file(Path(name));
        EXPECT_TRUE(file.Open("w") && file.Write(text) && file.Close());
        return Path(name);
    }
    kel_ns::SYS_String Read(const char* name) const {
        kel_ns::SFM_File file(Path(name));
        kel_ns::SYS_String text;
        EXPECT_TRUE(file.Open("r") && file.ReadAll(text)) << name;
        return text;
    }

private:
    static void removeAll(const std::string& path) {
        kel_ns::Platform& platform = kel_ns::GetPlatform();
        std::vector<kel_ns::PlatformDirectoryEntry> entries;
        platform.ListDirectory(path.c_str(), entries);
        for (const kel_ns::PlatformDirectoryEntry& entry : entries) {
            const std::string inner = path + "/" + entry.name.c_str();
            if (entry.isDirectory)
                removeAll(inner);
            else
                platform.DeleteFile(inner.c_str());
        }
        platform.DeleteDirectory(path.c_str());
    }

    std::string m_Path;
};
