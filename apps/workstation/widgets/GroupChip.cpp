#include "GroupChip.h"

#include "workstation/look/modQt.h"
#include "workstation/look/modTheme.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <utility>

namespace dorvik {

GroupChipButton::GroupChipButton(std::int32_t column, ColumnDrag& drag, QWidget* parent)
    : QToolButton(parent), m_column(column), m_drag(drag) {
    setAutoRaise(true);
    setFocusPolicy(Qt::StrongFocus);
}

void GroupChipButton::mousePressEvent(QMouseEvent* event) {
    QToolButton::mousePressEvent(event);
    if (event->button() == Qt::LeftButton) {
        m_drag.Press(m_column, text(), event->globalPosition().toPoint());
    }
}

void GroupChipButton::mouseMoveEvent(QMouseEvent* event) {
    if (m_drag.Move(event->globalPosition().toPoint())) {
        setDown(false);
    } else {
        QToolButton::mouseMoveEvent(event);
    }
}

void GroupChipButton::mouseReleaseEvent(QMouseEvent* event) {
    if (!m_drag.Release(event->globalPosition().toPoint())) {
        QToolButton::mouseReleaseEvent(event);
    }
}

void GroupChipButton::keyPressEvent(QKeyEvent* event) {
    const bool moves = event->modifiers().testFlag(Qt::ControlModifier);
    switch (event->key()) {
        case Qt::Key_Left:
        case Qt::Key_Right: {
            const int steps = event->key() == Qt::Key_Left ? -1 : 1;
            (moves ? MoveRequested : FocusRequested).Raise(steps);
            break;
        }
        case Qt::Key_Delete:
        case Qt::Key_Backspace: RemoveRequested.Raise(); break;
        default: QToolButton::keyPressEvent(event);
    }
}

GroupChip::GroupChip(
    const GridOrderKey& group, const QString& title, ColumnDrag& drag, QWidget* parent)
    : QWidget(parent),
      m_column(group.Column),
      m_button(modQt::Make<GroupChipButton>(group.Column, drag, this)),
      m_cross(modQt::Make<QToolButton>(this)) {
    auto& row = modQt::Make<QHBoxLayout>(this);
    row.setContentsMargins(0, 0, 0, 0);
    row.setSpacing(0);
    row.addWidget(&m_button);
    row.addWidget(&m_cross);
    m_button.setText(title);
    m_button.setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_button.setArrowType(group.Descending ? Qt::DownArrow : Qt::UpArrow);
    const QString direction =
        group.Descending ? QStringLiteral("descending") : QStringLiteral("ascending");
    m_button.setAccessibleName(QStringLiteral("Grouped by %1, %2").arg(title, direction));
    m_button.setToolTip(QStringLiteral("Grouped by %1, %2. Click to turn the order, drag to move.")
                            .arg(title, direction));
    m_cross.setText(QStringLiteral("\u00D7"));
    m_cross.setAutoRaise(true);
    m_cross.setAccessibleName(QStringLiteral("Remove the group %1").arg(title));
    m_cross.setToolTip(m_cross.accessibleName());
}

void GroupChip::SetKeys(
    std::function<void(int)> move, std::function<void(int)> focus, std::function<void()> remove) {
    m_keys.clear();
    m_keys.push_back(m_button.MoveRequested.Subscribe(std::move(move)));
    m_keys.push_back(m_button.FocusRequested.Subscribe(std::move(focus)));
    m_keys.push_back(m_button.RemoveRequested.Subscribe(std::move(remove)));
}

void GroupChip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette().color(QPalette::Mid));
    painter.setBrush(modTheme::Colours().GroupRow);
    const double radius = fontMetrics().height() / 4.0;
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

}  // namespace dorvik
