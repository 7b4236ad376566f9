#include "workstation/widgets/GroupByBar.h"

#include "GroupChip.h"
#include "workstation/controls/modGridOrder.h"
#include "workstation/look/modQt.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QToolButton>

#include <algorithm>

namespace dorvik {

GroupByBar::GroupByBar(Grid& grid, QWidget* parent)
    : QFrame(parent),
      m_grid(grid),
      m_row(modQt::Make<QHBoxLayout>(this)),
      m_hint(modQt::Make<QLabel>(this)),
      m_add(modQt::Make<QToolButton>(this)) {
    const int gap = fontMetrics().height() / 3;
    m_row.setContentsMargins(gap, gap, gap, gap);
    m_row.setSpacing(gap);
    m_hint.setText(QStringLiteral("Drag a column heading here to group by it"));
    m_hint.setForegroundRole(QPalette::PlaceholderText);
    m_row.addWidget(&m_hint);
    m_row.addStretch(1);
    m_row.addWidget(&m_add);
    m_add.setText(QStringLiteral("&Add group"));
    m_add.setAccessibleName(QStringLiteral("Add group"));
    m_add.setAutoRaise(true);
    m_add.setPopupMode(QToolButton::InstantPopup);
    auto& menu = modQt::Make<QMenu>(&m_add);
    m_add.setMenu(&menu);
    QObject::connect(&menu, &QMenu::aboutToShow, this, [this] { FillMenu(); });
    setAccessibleName(QStringLiteral("Groups of the list"));
    m_subscriptions.push_back(m_grid.Changed.Subscribe([this](GridChange change, std::size_t) {
        if (change == GridChange::Rows) {
            Follow();
        }
    }));
    TakeFrom(m_drag);
    Rebuild();
}

GroupByBar::~GroupByBar() = default;

void GroupByBar::TakeFrom(ColumnDrag& drag) {
    m_subscriptions.push_back(drag.Moved.Subscribe(
        [this](std::int32_t, QPoint place) { ShowDropAt(PositionAt(place)); }));
    m_subscriptions.push_back(drag.Dropped.Subscribe([this](std::int32_t column, QPoint place) {
        if (const std::optional<std::size_t> position = PositionAt(place)) {
            modGridOrder::PlaceGroup(m_grid, column, *position);
        }
    }));
    m_subscriptions.push_back(drag.Ended.Subscribe([this] { ShowDropAt(std::nullopt); }));
}

std::vector<QToolButton*> GroupByBar::Chips() const {
    std::vector<QToolButton*> buttons;
    for (GroupChip* const chip : m_chips) {
        buttons.push_back(&chip->Button());
    }
    return buttons;
}

// ---- what shows ----

void GroupByBar::Follow() {
    if (m_shown != m_grid.Groups()) {
        Rebuild();
    }
}

/// The chip of the same column has the keyboard afterwards.
void GroupByBar::Rebuild() {
    std::int32_t focused = 0;
    for (GroupChip* const chip : m_chips) {
        focused = chip->isAncestorOf(focusWidget()) ? chip->Column() : focused;
    }
    for (GroupChip* const chip : m_chips) {
        // It may be the one whose click is being handled.
        chip->hide();
        m_row.removeWidget(chip);
        chip->deleteLater();
    }
    m_chips.clear();
    m_shown = m_grid.Groups();
    m_hint.setVisible(m_shown.empty());
    QWidget* before = nullptr;
    for (const GridOrderKey& group : m_shown) {
        auto& chip = modQt::Make<GroupChip>(
            group, modQt::Text(modGridOrder::TitleOf(m_grid, group.Column)), m_drag, this);
        const std::int32_t column = group.Column;
        QObject::connect(&chip.Button(), &QToolButton::clicked, this, [this, column] {
            modGridOrder::TurnGroup(m_grid, column);
        });
        QObject::connect(&chip.Cross(), &QToolButton::clicked, this, [this, column] {
            modGridOrder::RemoveGroup(m_grid, column);
        });
        chip.SetKeys(
            [this, column](int steps) { MoveBy(column, steps); },
            [this, column](int steps) { FocusBy(column, steps); },
            [this, column] { modGridOrder::RemoveGroup(m_grid, column); });
        m_row.insertWidget(static_cast<int>(m_chips.size()), &chip);
        m_chips.push_back(&chip);
        if (before != nullptr) {
            setTabOrder(before, &chip.Button());
        }
        setTabOrder(&chip.Button(), &chip.Cross());
        before = &chip.Cross();
        chip.show();
        if (column == focused) {
            chip.Button().setFocus();
        }
    }
    if (before != nullptr) {
        setTabOrder(before, &m_add);
    }
    if (focused != 0 && !m_grid.HasGroup(focused)) {
        m_add.setFocus();
    }
    m_add.setEnabled(!modGridOrder::ColumnsToGroupBy(m_grid).empty());
}

void GroupByBar::FillMenu() {
    QMenu& menu = *m_add.menu();
    menu.clear();
    for (const std::int32_t column : modGridOrder::ColumnsToGroupBy(m_grid)) {
        QAction* const action = menu.addAction(modQt::Text(modGridOrder::TitleOf(m_grid, column)));
        QObject::connect(action, &QAction::triggered, this, [this, column] {
            modGridOrder::PlaceGroup(m_grid, column, m_grid.Groups().size());
        });
    }
}

// ---- keyboard ----

void GroupByBar::MoveBy(std::int32_t column, int steps) {
    const auto found = std::find_if(m_shown.begin(), m_shown.end(), [&](const GridOrderKey& group) {
        return group.Column == column;
    });
    const auto position = static_cast<int>(found - m_shown.begin());
    const int target = steps < 0 ? position - 1 : position + 2;  // in front of that one
    if (target >= 0) {
        modGridOrder::PlaceGroup(m_grid, column, static_cast<std::size_t>(target));
    }
}

void GroupByBar::FocusBy(std::int32_t column, int steps) {
    const auto found = std::find_if(
        m_chips.begin(), m_chips.end(), [&](GroupChip* chip) { return chip->Column() == column; });
    const std::ptrdiff_t target = found - m_chips.begin() + steps;
    if (target >= 0 && target < static_cast<std::ptrdiff_t>(m_chips.size())) {
        m_chips[static_cast<std::size_t>(target)]->Button().setFocus(Qt::TabFocusReason);
    }
}

// ---- mouse ----

std::optional<std::size_t> GroupByBar::PositionAt(QPoint place) const {
    const QPoint inside = mapFromGlobal(place);
    if (!isVisible() || !rect().contains(inside)) {
        return std::nullopt;
    }
    const auto after = std::find_if(m_chips.begin(), m_chips.end(), [&](const GroupChip* chip) {
        return inside.x() < chip->geometry().center().x();
    });
    return static_cast<std::size_t>(after - m_chips.begin());
}

void GroupByBar::ShowDropAt(std::optional<std::size_t> position) {
    if (m_drop != position) {
        m_drop = position;
        update();
    }
}

void GroupByBar::paintEvent(QPaintEvent* event) {
    QFrame::paintEvent(event);
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(rect().bottomLeft(), rect().bottomRight());
    if (!m_drop) {
        return;
    }
    const int thick = std::max(2, fontMetrics().height() / 6);
    const int x = m_chips.empty()            ? m_hint.x()
                  : *m_drop < m_chips.size() ? m_chips[*m_drop]->x()
                                             : m_chips.back()->geometry().right() + m_row.spacing();
    painter.fillRect(
        QRect(x - m_row.spacing() / 2 - thick / 2, thick, thick, height() - 2 * thick),
        palette().color(QPalette::Highlight));
}

}  // namespace dorvik
