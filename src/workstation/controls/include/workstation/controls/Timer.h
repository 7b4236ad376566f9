#pragma once

#include "workstation/controls/Event.h"
#include "workstation/controls/Observable.h"

#include <chrono>

namespace dorvik {

/// Ticks for as long as it is enabled. The screen keeps the time: it calls `Tick` on the one thread of the program,
/// whenever the interval is over and no other code runs. A tick of a timer that is disabled does nothing.
class Timer {
public:
    explicit Timer(std::chrono::milliseconds interval) : m_interval(interval) {}

    std::chrono::milliseconds Interval() const { return m_interval; }
    void Tick() const {
        if (Enabled.Value()) {
            Ticked.Raise();
        }
    }

    Observable<bool> Enabled;
    Event<> Ticked;

private:
    std::chrono::milliseconds m_interval;
};

}  // namespace dorvik
