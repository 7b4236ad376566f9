#include "workstation/widgets/TimerDriver.h"

namespace dorvik {

TimerDriver::TimerDriver(Timer& timer) {
    m_clock.setInterval(timer.Interval());
    QObject::connect(&m_clock, &QTimer::timeout, &m_clock, [&timer] { timer.Tick(); });
    const auto follow = [this](const bool& enabled) {
        if (enabled) {
            m_clock.start();
        } else {
            m_clock.stop();
        }
    };
    follow(timer.Enabled.Value());
    m_enabled = timer.Enabled.Changed.Subscribe(follow);
}

}  // namespace dorvik
