#include "RunProgram.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

extern char** environ;

namespace {

using Clock = std::chrono::steady_clock;

void check(int error, const std::string& what) {
    if (error != 0)
        throw std::system_error(error, std::generic_category(), what);
}

// Both ends are closed when a program is started, except where it is told to keep one.
struct Pipe {
    Pipe() { check(pipe2(ends, O_CLOEXEC) == 0 ? 0 : errno, "pipe"); }
    ~Pipe() {
        Close(0);
        Close(1);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    void Close(int end) {
        if (ends[end] >= 0)
            close(ends[end]);
        ends[end] = -1;
    }

    int ends[2];
};

struct SpawnActions {
    SpawnActions() {
        check(posix_spawn_file_actions_init(&actions), "spawn");
        check(posix_spawnattr_init(&attributes), "spawn");
        // The program gets the usual treatment of signals, not what the tests have set.
        sigset_t usual;
        sigemptyset(&usual);
        sigaddset(&usual, SIGPIPE);
        sigaddset(&usual, SIGINT);
        posix_spawnattr_setsigdefault(&attributes, &usual);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
    }
    ~SpawnActions() {
        posix_spawnattr_destroy(&attributes);
        posix_spawn_file_actions_destroy(&actions);
    }
    SpawnActions(const SpawnActions&) = delete;
    SpawnActions& operator=(const SpawnActions&) = delete;

    void Redirect(int from, int to) {
        check(posix_spawn_file_actions_adddup2(&actions, from, to), "spawn");
    }

    posix_spawn_file_actions_t actions;
    posix_spawnattr_t attributes;
};

// Takes what has arrived; closes the pipe at its end.
void drain(Pipe& pipe, std::string& text) {
    char buffer[65536];
    const ssize_t count = read(pipe.ends[0], buffer, sizeof buffer);
    if (count > 0)
        text.append(buffer, static_cast<size_t>(count));
    else
        pipe.Close(0);
}

// Gives the program as much input as it takes now.
void feed(Pipe& pipe, const std::string& text, size_t& given) {
    const ssize_t count = write(pipe.ends[1], text.data() + given, text.size() - given);
    if (count > 0)
        given += static_cast<size_t>(count);
    if ((count < 0 && errno != EAGAIN) || given == text.size())
        pipe.Close(1);
}

class Exchange {
public:
    Exchange(pid_t child, const ProgramInput& input) : m_Child(child), m_Input(input) {}

    // Moves text until the program has closed both outputs or its time is over.
    void Run(Pipe& in, Pipe& out, Pipe& err, ProgramResult& result) {
        size_t given = 0;
        if (m_Input.text.empty())
            in.Close(1);
        while (out.ends[0] >= 0 || err.ends[0] >= 0) {
            pollfd waiting[] = {
                {out.ends[0], POLLIN, 0}, {err.ends[0], POLLIN, 0}, {in.ends[1], POLLOUT, 0}};
            poll(waiting, 3, 20);
            if (waiting[0].revents != 0)
                drain(out, result.out);
            if (waiting[1].revents != 0)
                drain(err, result.err);
            if (waiting[2].revents != 0)
                feed(in, m_Input.text, given);
            if (!watchTheTime(result))
                return;
        }
    }

private:
    bool watchTheTime(ProgramResult& result) {
        const auto passed = Clock::now() - m_Start;
        if (m_Input.interruptAfter.count() > 0 && passed > m_Input.interruptAfter &&
            !m_Interrupted) {
            m_Interrupted = true;
            kill(m_Child, SIGINT);
        }
        if (passed <= m_Input.limit)
            return true;
        result.timedOut = true;
        kill(m_Child, SIGKILL);
        return false;
    }

    const pid_t m_Child;
    const ProgramInput& m_Input;
    const Clock::time_point m_Start = Clock::now();
    bool m_Interrupted = false;
};

} // namespace

ProgramResult RunProgram(const std::vector<std::string>& command, const ProgramInput& input) {
    // A program that ends early must not end the tests when they write to it.
    std::signal(SIGPIPE, SIG_IGN);

    Pipe in;
    Pipe out;
    Pipe err;
    fcntl(in.ends[1], F_SETFL, O_NONBLOCK); // waiting is the poll's business
    SpawnActions actions;
    actions.Redirect(in.ends[0], STDIN_FILENO);
    actions.Redirect(out.ends[1], STDOUT_FILENO);
    actions.Redirect(err.ends[1], STDERR_FILENO);
    if (!input.folder.empty())
        check(posix_spawn_file_actions_addchdir_np(&actions.actions, input.folder.c_str()),
              input.folder);

    std::vector<char*> arguments;
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);

    const auto start = Clock::now();
    pid_t child = 0;
    check(posix_spawn(&child, arguments[0], &actions.actions, &actions.attributes, arguments.data(),
                      environ),
          command[0]);
    in.Close(0);
    out.Close(1);
    err.Close(1);

    ProgramResult result;
    Exchange(child, input).Run(in, out, err, result);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR)
        continue;
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    result.duration = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
    return result;
}

std::string ReadWholeFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    check(file.is_open() ? 0 : ENOENT, path);
    return text;
}
