#pragma once

#include "workstation/controls/Event.h"

#include <QLabel>
#include <QObject>
#include <QPoint>
#include <QString>

#include <cstdint>
#include <memory>

namespace dorvik {

/// A column that the user drags with the mouse, from a heading or within the group-by box. A label with its title follows the
/// mouse; Escape ends the drag without a drop. Places are those on the screen.
class ColumnDrag final : public QObject {
public:
    /// The button of the mouse goes down.
    void Press(std::int32_t column, QString title, QPoint place);
    /// The mouse has moved with the button down. Gives whether the column is dragged: not before the mouse has moved some
    /// way.
    bool Move(QPoint place);
    /// The button goes up. Gives whether that has ended a drag.
    bool Release(QPoint place);
    bool Active() const { return m_label != nullptr; }

    Event<std::int32_t, QPoint> Moved;
    Event<std::int32_t, QPoint> Dropped;
    Event<> Ended;  // after a drop, and without one

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void End();

    std::int32_t m_column = 0;  // 0 while the button is up
    QString m_title;
    QPoint m_from;
    std::unique_ptr<QLabel> m_label;
};

}  // namespace dorvik
