#pragma once

#include <SFM_File.h>

#include <cstdlib>
#include <filesystem>
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
    ~TempDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(m_Path, ignored);
    }

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
    std::string m_Path;
};
