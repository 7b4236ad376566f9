#include "cli/Interrupt.h"

#include <csignal>

namespace dorvik {

namespace {

volatile std::sig_atomic_t g_requested = 0;

void Remember(int signal) {
    g_requested = 1;
    std::signal(signal, SIG_DFL);
}

}  // namespace

Interrupt::Interrupt() {
    g_requested = 0;
    std::signal(SIGINT, Remember);
    std::signal(SIGTERM, Remember);
}

Interrupt::~Interrupt() {
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
}

bool Interrupt::Requested() const {
    return g_requested != 0;
}

}  // namespace dorvik
