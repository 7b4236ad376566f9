#include "workstation/forms/EventLoopInput.h"

#include <QCoreApplication>
#include <QScopedValueRollback>
#include <QThread>

namespace dorvik {

namespace {

constexpr std::chrono::milliseconds kBetweenTurns{15};

}  // namespace

bool EventLoopInput::InputIsWaiting() {
    return Clock::now() - m_lastTurn >= kBetweenTurns;
}

void EventLoopInput::ProcessInput() {
    const int depth = QThread::currentThread()->loopLevel();
    if (depth > m_depth) {
        const QScopedValueRollback<int> running(m_depth, depth);
        QCoreApplication::processEvents();
    }
    m_lastTurn = Clock::now();
}

}  // namespace dorvik
