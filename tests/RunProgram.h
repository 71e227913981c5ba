#pragma once

#include <chrono>
#include <string>
#include <vector>

/// What a program left behind.
struct ProgramResult {
    std::string out;
    std::string err;
    /// The exit code, or minus the number of the signal that ended it.
    int status = 0;
    bool timedOut = false;
    std::chrono::milliseconds duration{0};
};

struct ProgramInput {
    std::string text;                            ///< what standard input gives
    std::string folder;                          ///< where it runs; empty: here
    std::chrono::milliseconds limit{120000};     ///< it is killed when this has passed
    std::chrono::milliseconds interruptAfter{0}; ///< sends SIGINT then; 0: never
};

/// Runs a program (path first) to its end. Throws std::system_error if it cannot be started.
ProgramResult RunProgram(const std::vector<std::string>& command, const ProgramInput& input = {});

/// The whole of a file. Throws std::system_error if it cannot be read.
std::string ReadWholeFile(const std::string& path);
