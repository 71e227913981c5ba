#include "Interrupt.h"

#include <csignal>

namespace {

volatile std::sig_atomic_t s_Asked = 0;

void onInterrupt(int) { s_Asked = 1; }

} // namespace

Interrupt::Interrupt() { Clear(); }

Interrupt::~Interrupt() { std::signal(SIGINT, SIG_DFL); }

bool Interrupt::IsAsked() { return s_Asked != 0; }

void Interrupt::Clear(bool wakesReads) {
    s_Asked = 0;
    struct sigaction action {};
    action.sa_handler = onInterrupt;
    action.sa_flags = static_cast<int>(SA_RESETHAND) | (wakesReads ? 0 : SA_RESTART);
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, nullptr);
}
