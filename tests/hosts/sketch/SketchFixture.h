#pragma once

#include "RunProgram.h"
#include "TestPaths.h"

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <unistd.h>

/// Runs sketch in a folder of its own.
class Sketch : public testing::Test {
protected:
    void SetUp() override {
        static std::atomic<int> number = 0;
        m_Folder = std::filesystem::temp_directory_path() /
                   ("sketch-test-" + std::to_string(getpid()) + "-" + std::to_string(++number));
        std::filesystem::create_directories(m_Folder);
    }
    void TearDown() override { std::filesystem::remove_all(m_Folder); }

    std::string path(const std::string& name) { return (m_Folder / name).string(); }

    std::string write(const std::string& name, const std::string& text) {
        std::ofstream(path(name), std::ios::binary) << text;
        return path(name);
    }

    static ProgramResult sketch(std::vector<std::string> arguments, const std::string& text = {}) {
        arguments.insert(arguments.begin(), TEST_BINARY_DIR "/sketch");
        ProgramInput input;
        input.text = text;
        return RunProgram(arguments, input);
    }

    ProgramResult play(const std::string& macro) {
        return sketch({"play", write("macro.mcr", macro)});
    }

    /// What the macro leaves in the title of the page.
    std::string titleAfter(const std::string& macro) {
        const ProgramResult result = play(macro);
        EXPECT_EQ(result.err, "") << macro;
        const std::size_t begin = result.out.find("<title>") + 7;
        return result.out.substr(begin, result.out.find("</title>") - begin);
    }

    struct Recording {
        ProgramResult result;
        std::string macro;
        std::string svg;
    };

    Recording record(const std::string& gestures, const char* command = "record") {
        std::vector<std::string> arguments = {command, "--macro", path("recorded.mcr"), "--svg",
                                              path("recorded.svg")};
        if (arguments[0] == "record")
            arguments.push_back("-");
        Recording recording{sketch(arguments, gestures), "", ""};
        recording.macro = ReadWholeFile(path("recorded.mcr"));
        recording.svg = ReadWholeFile(path("recorded.svg"));
        return recording;
    }

    /// What has been recorded draws the same picture from an empty document.
    void expectSamePicture(const Recording& recording, const std::string& what) {
        const ProgramResult played = play(recording.macro);
        EXPECT_EQ(played.err, "") << what << recording.macro;
        EXPECT_EQ(played.status, 0);
        EXPECT_EQ(played.out, recording.svg) << what << recording.macro;
    }

    std::filesystem::path m_Folder;
};
