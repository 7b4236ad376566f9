#include "FormWindow.h"

#include "workstation/look/modQt.h"

#include <QAbstractItemView>
#include <QKeySequence>
#include <QShortcut>

#include <utility>

namespace dorvik {

FormWindow::FormWindow(QWidget* parent, std::function<void()> leave)
    : QDialog(parent), m_leave(std::move(leave)) {
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

FormWindow::~FormWindow() {
    FormWindow::Detach();
}

/// A widget that goes may still report that its value has changed.
void FormWindow::Detach() {
    if (std::exchange(m_isDetached, true)) {
        return;
    }
    m_bindings.Clear();
    for (QWidget* const widget : findChildren<QWidget*>()) {
        widget->blockSignals(true);
    }
    for (QAbstractItemView* const view : findChildren<QAbstractItemView*>()) {
        view->setModel(nullptr);
    }
}

void FormWindow::reject() {
    if (!m_isDetached) {
        m_leave();
    }
}

void FormWindow::OnNextPage(std::function<void()> next) {
    QShortcut& keys = modQt::Make<QShortcut>(QKeySequence(Qt::CTRL | Qt::Key_Tab), this);
    connect(&keys, &QShortcut::activated, this, [this, next = std::move(next)] {
        if (!m_isDetached) {
            next();
        }
    });
}

}  // namespace dorvik
