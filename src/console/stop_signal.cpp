#include "console/stop_signal.h"

#include <csignal>

namespace tidvane::console {

namespace {

volatile std::sig_atomic_t stopWanted = 0;

extern "C" void noteStop(int) {
    stopWanted = 1;
}

}  // namespace

StopSignal::StopSignal() {
    clear();
    struct sigaction action {};
    action.sa_handler = noteStop;
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);  // the second one finds the default again
    sigaction(SIGINT, &action, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
}

StopSignal::~StopSignal() {
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGPIPE, SIG_DFL);
}

bool StopSignal::pending() {
    return stopWanted != 0;
}

void StopSignal::clear() {
    stopWanted = 0;
}

void StopSignal::raise() {
    stopWanted = 1;
}

void StopPump::DoEvents() {
    events_.DoEvents();
    if (StopSignal::pending() && click && click()) StopSignal::clear();
}

}  // namespace tidvane::console
