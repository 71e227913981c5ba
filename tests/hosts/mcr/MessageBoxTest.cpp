// Message boxes on a terminal, which the test plays.

#include "TestPaths.h"

#include <gtest/gtest.h>

#include <csignal>
#include <poll.h>
#include <pty.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// Evaluates an expression with mcr on a terminal of its own, where these lines are typed. Gives
/// all that the terminal has shown.
std::string onTerminal(const std::string& expression, const std::string& typed) {
    int terminal = -1;
    const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
    if (child == 0) {
        execl(TEST_BINARY_DIR "/mcr", "mcr", "eval", expression.c_str(), nullptr);
        _exit(127);
    }
    EXPECT_GT(child, 0);
    EXPECT_EQ(write(terminal, typed.data(), typed.size()), static_cast<ssize_t>(typed.size()));
    std::string shown;
    char part[256];
    pollfd ready = {terminal, POLLIN, 0};
    while (poll(&ready, 1, 10000) > 0) {
        const ssize_t count = read(terminal, part, sizeof part);
        if (count <= 0)
            break;
        shown.append(part, static_cast<std::size_t>(count));
    }
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    close(terminal);
    return shown;
}

TEST(MessageBox, AsksOnTheTerminal) {
    const struct {
        const char* arguments;
        const char* typed;
        const char* prompt;
        const char* answer;
    } cases[] = {
        {"4", "n\n", "[Yes] No? ", "7"},
        {"3 + 512", "\n", "Yes No [Cancel]? ", "2"},
        {"2", "maybe\nret\n", "[Abort] Retry Ignore? ", "4"},
        {"5", "CANCEL\n", "[Retry] Cancel? ", "2"},
        {"0", "\4", "[OK]? ", "1"},
        {"768 + 1", "\n", "[OK] Cancel? ", "1"},
    };
    for (const auto& row : cases) {
        const std::string shown = onTerminal(
            std::string("MsgBox(\"Sure?\", ") + row.arguments + ", \"Title\")", row.typed);
        EXPECT_NE(shown.find("Title: Sure?\r\n" + std::string(row.prompt)), std::string::npos)
            << shown;
        EXPECT_TRUE(shown.ends_with(std::string(row.answer) + "\r\n")) << shown;
    }
    const std::string shown =
        onTerminal("Console.Write(\"open\") & MsgBox(\"line\", 0, \"\")", "\n");
    EXPECT_NE(shown.find("open\r\nline\r\n[OK]? "), std::string::npos) << shown;
}

} // namespace
