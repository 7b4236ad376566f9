#include "workstation/window/EventGaps.h"

#include <algorithm>

namespace dorvik {

namespace {

constexpr std::chrono::milliseconds kBeat{10};

}  // namespace

EventGaps::EventGaps() {
    m_beat.setTimerType(Qt::PreciseTimer);
    m_beat.setInterval(kBeat);
    QObject::connect(&m_beat, &QTimer::timeout, &m_beat, [this] { Tick(); });
    m_sinceBeat.start();
    m_beat.start();
}

void EventGaps::Reset() {
    m_longest = std::chrono::milliseconds(0);
    m_sinceBeat.restart();
}

void EventGaps::Tick() {
    const std::chrono::milliseconds passed(m_sinceBeat.restart());
    m_longest = std::max(m_longest, passed - kBeat);
}

}  // namespace dorvik
