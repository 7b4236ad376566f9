#pragma once

#include "workstation/controls/Timer.h"

#include <QTimer>

namespace dorvik {

/// Keeps the time of a model's timer. REQUIRES: the timer outlives it.
class TimerDriver {
public:
    explicit TimerDriver(Timer& timer);

private:
    QTimer m_clock;
    Subscription m_enabled;
};

}  // namespace dorvik
