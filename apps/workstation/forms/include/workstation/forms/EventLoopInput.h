#pragma once

#include "platform/host/IHostInput.h"

#include <chrono>

namespace dorvik {

/// Gives the event loop its turn while the program is at work, often enough for windows that follow what the user does.
class EventLoopInput final : public IHostInput {
public:
    /// Whether the last turn is some time ago; whether anything waits, only the turn itself shows.
    bool InputIsWaiting() override;
    /// Does nothing inside such a turn, unless a modal window has been opened in it.
    void ProcessInput() override;

private:
    using Clock = std::chrono::steady_clock;

    Clock::time_point m_lastTurn = Clock::now();
    int m_depth = -1;  // of the event loops around the turn that runs; -1 where none does
};

}  // namespace dorvik
