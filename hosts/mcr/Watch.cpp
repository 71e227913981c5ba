#include "Watch.h"

#include <algorithm>
#include <cmath>
#include <csignal>
#include <sys/time.h>

namespace {

volatile std::sig_atomic_t s_Reason = Watch::Running;

void onInterrupt(int) { s_Reason = Watch::Interrupted; }

void onTimer(int) {
    if (s_Reason == Watch::Running)
        s_Reason = Watch::TimedOut;
}

// No SA_RESTART: a read that waits must return. A second Ctrl-C, for a run that does not come to
// its next statement, gets the usual treatment and ends the process.
void handle(int signal, void (*handler)(int), int flags) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = flags;
    sigemptyset(&action.sa_mask);
    sigaction(signal, &action, nullptr);
}

void setTimer(double seconds) {
    // It keeps ringing, so that a read that begins just after the first ring is woken, too.
    constexpr suseconds_t kRepeatMicroseconds = 50000;
    itimerval timer{};
    if (seconds > 0) {
        const double whole = std::floor(seconds);
        timer.it_value.tv_sec = static_cast<time_t>(whole);
        timer.it_value.tv_usec = static_cast<suseconds_t>((seconds - whole) * 1e6);
        if (timer.it_value.tv_sec == 0)
            timer.it_value.tv_usec = std::max<suseconds_t>(timer.it_value.tv_usec, 1);
        timer.it_interval.tv_usec = kRepeatMicroseconds;
    }
    setitimer(ITIMER_REAL, &timer, nullptr);
}

} // namespace

Watch::Watch(double seconds) {
    s_Reason = Running;
    handle(SIGINT, onInterrupt, static_cast<int>(SA_RESETHAND));
    handle(SIGALRM, onTimer, 0);
    setTimer(seconds);
}

Watch::~Watch() {
    setTimer(0);
    handle(SIGALRM, SIG_DFL, 0);
    handle(SIGINT, SIG_DFL, 0);
}

Watch::Reason Watch::GetReason() { return static_cast<Reason>(s_Reason); }

const char* Watch::Describe(Reason reason) {
    switch (reason) {
    case Interrupted:
        return "Interrupted";
    case TimedOut:
        return "Time limit reached";
    case Running:
        break;
    }
    return "";
}
