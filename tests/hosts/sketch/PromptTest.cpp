// The prompt of sketch on a terminal, which the test plays.

#include "SketchFixture.h"

#include <algorithm>
#include <csignal>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

namespace {

class SketchPrompt : public Sketch {
protected:
    /// Types each text when the next prompt has come. Gives the exit code, or minus the number of
    /// the signal that ended the program.
    int typeAll(const std::vector<std::string>& texts) {
        int terminal = -1;
        const std::string macro = path("out.mcr");
        const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
        if (child == 0) {
            execl(TEST_BINARY_DIR "/sketch", "sketch", "--macro", macro.c_str(), nullptr);
            _exit(127);
        }
        m_Shown.clear();
        std::size_t from = 0;
        for (const std::string& text : texts) {
            constexpr std::string_view kPrompt = "sketch> ";
            while (m_Shown.find(kPrompt, from) == std::string::npos && readMore(terminal)) {
            }
            awaitReader(terminal);
            from = m_Shown.size();
            EXPECT_EQ(::write(terminal, text.data(), text.size()),
                      static_cast<ssize_t>(text.size()));
        }
        while (readMore(terminal)) {
        }
        kill(child, SIGKILL); // in vain, unless it hangs
        int status = 0;
        waitpid(child, &status, 0);
        close(terminal);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }
    std::string recorded() { return ReadWholeFile(path("out.mcr")); }

    std::string m_Shown;

private:
    /// What is typed before the line editor has taken the terminal over may get lost.
    static void awaitReader(int terminal) {
        termios state{};
        for (int i = 0; i < 10000; ++i) {
            if (tcgetattr(terminal, &state) == 0 && (state.c_lflag & ICANON) == 0)
                return;
            usleep(1000);
        }
        ADD_FAILURE() << "nobody reads from the terminal";
    }
    bool readMore(int terminal) {
        char part[256];
        pollfd ready = {terminal, POLLIN, 0};
        if (poll(&ready, 1, 10000) <= 0)
            return false;
        const ssize_t count = read(terminal, part, sizeof part);
        m_Shown.append(part, static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        return count > 0;
    }
};

TEST_F(SketchPrompt, TheEndOfTheInputEndsDialogsAndProgram) {
    EXPECT_EQ(typeAll({"circle 1 2 3\n", "oops\n", "open options\n", "\x04"}), 0);
    EXPECT_NE(m_Shown.find("there is no gesture 'oops'"), std::string::npos) << m_Shown;
    EXPECT_NE(m_Shown.find("the dialog Options is still open"), std::string::npos) << m_Shown;
    EXPECT_EQ(recorded(), "Document.Shapes.AddCircle 1, 2, 3\nApp.ShowOptions\nwithDlg Options\n"
                          "end withDlg\n");
}

TEST_F(SketchPrompt, AnInterruptLosesNothingThatWasRecorded) {
    EXPECT_EQ(typeAll({"circle 1 2 3\n", "select all\n", "\x03"}), -SIGINT);
    EXPECT_EQ(recorded(), "Document.Shapes.AddCircle 1, 2, 3\nDocument.SelectAll\n");
}

} // namespace
