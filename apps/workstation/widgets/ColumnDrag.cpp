#include "workstation/widgets/ColumnDrag.h"

#include <QApplication>
#include <QKeyEvent>

#include <utility>

namespace dorvik {

void ColumnDrag::Press(std::int32_t column, QString title, QPoint place) {
    m_column = column;
    m_title = std::move(title);
    m_from = place;
}

bool ColumnDrag::Move(QPoint place) {
    if (m_column == 0) {
        return false;
    }
    if (!Active()) {
        if ((place - m_from).manhattanLength() < QApplication::startDragDistance()) {
            return false;
        }
        m_label = std::make_unique<QLabel>(m_title, nullptr, Qt::ToolTip);
        m_label->setFrameShape(QFrame::Box);
        m_label->setAutoFillBackground(true);
        m_label->setMargin(m_label->fontMetrics().height() / 3);
        m_label->setAttribute(Qt::WA_TransparentForMouseEvents);
        m_label->show();
        QApplication::instance()->installEventFilter(this);
    }
    m_label->move(place + QPoint(m_label->margin(), m_label->margin()) * 2);
    Moved.Raise(m_column, place);
    return true;
}

bool ColumnDrag::Release(QPoint place) {
    const std::int32_t column = std::exchange(m_column, 0);
    if (!Active()) {
        return false;
    }
    End();
    Dropped.Raise(column, place);
    return true;
}

void ColumnDrag::End() {
    QApplication::instance()->removeEventFilter(this);
    m_label.reset();
    Ended.Raise();
}

bool ColumnDrag::eventFilter(QObject* watched, QEvent* event) {
    const bool isKey =
        event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (isKey && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        m_column = 0;
        End();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace dorvik
