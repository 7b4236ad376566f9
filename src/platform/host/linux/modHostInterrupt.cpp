#include "platform/host/modHostInterrupt.h"

#include "platform/host/UnfinishedFile.h"

#include <array>
#include <csignal>
#include <cstddef>

namespace dorvik::modHostInterrupt {

namespace {

constexpr std::array kSignals = {SIGINT, SIGTERM, SIGHUP, SIGPIPE};

volatile std::sig_atomic_t g_requested = 0;
std::array<struct sigaction, kSignals.size()> g_before{};

extern "C" void Remember(int signal) {
    // Every further write to an output without a reader sends its signal again; that is not a second request to end.
    if (g_requested == 0 || signal == SIGPIPE) {
        g_requested = 1;
        return;
    }
    UnfinishedFile::RemoveAll();
    std::signal(signal, SIG_DFL);
    std::raise(signal);  // comes once this handler returns
}

struct sigaction Remembering() {
    struct sigaction action {};
    action.sa_handler = &Remember;
    // One request is dealt with at a time.
    for (const int signal : kSignals) {
        sigaddset(&action.sa_mask, signal);
    }
    action.sa_flags = SA_RESTART;
    return action;
}

}  // namespace

void Watch() {
    g_requested = 0;
    const struct sigaction action = Remembering();
    for (std::size_t which = 0; which < kSignals.size(); ++which) {
        struct sigaction& before = g_before.at(which);
        ::sigaction(kSignals.at(which), nullptr, &before);
        // The program itself has SIGPIPE ignored as long as nothing is at stake.
        if (before.sa_handler != SIG_IGN || kSignals.at(which) == SIGPIPE) {
            ::sigaction(kSignals.at(which), &action, nullptr);
        }
    }
}

bool Requested() {
    return g_requested != 0;
}

void Unwatch() {
    for (std::size_t which = 0; which < kSignals.size(); ++which) {
        ::sigaction(kSignals.at(which), &g_before.at(which), nullptr);
    }
}

}  // namespace dorvik::modHostInterrupt
