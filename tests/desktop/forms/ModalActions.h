#pragma once

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <deque>
#include <functional>
#include <utility>

namespace dorvik::test {

/// What the user of the test does in the modal windows that come: one action for each, once it is on the screen.
class ModalActions {
public:
    ModalActions() {
        m_clock.setInterval(2);
        QObject::connect(&m_clock, &QTimer::timeout, &m_clock, [this] { Look(); });
        m_clock.start();
    }

    void Add(std::function<void(QWidget& window)> action) {
        m_actions.push_back(std::move(action));
    }
    bool AllDone() const { return m_actions.empty(); }

private:
    void Look() {
        QWidget* const modal = QApplication::activeModalWidget();
        if (modal == nullptr || modal == m_last || !modal->isVisible() || m_actions.empty()) {
            return;
        }
        const QWidget* const before = std::exchange(m_last, modal);
        // A timer does not tick inside its own tick, and the action may open a further window.
        QTimer::singleShot(0, modal, [this, modal, before, action = std::move(m_actions.front())] {
            action(*modal);
            m_last = before;
        });
        m_actions.pop_front();
    }

    QTimer m_clock;
    const QWidget* m_last = nullptr;  // whose action is at work
    std::deque<std::function<void(QWidget&)>> m_actions;
};

}  // namespace dorvik::test
