#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <chrono>

namespace dorvik {

/// Measures how long the program did not come back to its input: the longest gap between two turns of the event loop.
class EventGaps {
public:
    EventGaps();
    EventGaps(const EventGaps&) = delete;
    EventGaps& operator=(const EventGaps&) = delete;

    std::chrono::milliseconds Longest() const { return m_longest; }
    /// Begins anew.
    void Reset();

private:
    void Tick();

    QTimer m_beat;
    QElapsedTimer m_sinceBeat;
    std::chrono::milliseconds m_longest{0};
};

}  // namespace dorvik
