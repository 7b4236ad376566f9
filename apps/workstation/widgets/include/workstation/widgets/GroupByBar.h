#pragma once

#include "workstation/controls/Grid.h"
#include "workstation/widgets/ColumnDrag.h"

#include <QFrame>

#include <cstdint>
#include <optional>
#include <vector>

class QHBoxLayout;
class QLabel;
class QToolButton;

namespace dorvik {

class GroupChip;

/// The box above a grid that shows by which columns it is grouped, as chips in the order of the groups.
///
/// A heading is dropped here to group by its column, a chip to move its group. A click on a chip turns its direction, its
/// cross removes it; with the keyboard Space turns, Delete removes, Left and Right go to another chip and, with Ctrl, move
/// this one. A menu adds the columns that are left.
class GroupByBar final : public QFrame {
public:
    /// REQUIRES: `grid` outlives this.
    explicit GroupByBar(Grid& grid, QWidget* parent = nullptr);
    ~GroupByBar() override;

    /// Headings that are dragged by it can be dropped here. REQUIRES: `drag` outlives this.
    void TakeFrom(ColumnDrag& drag);

    /// The chips, for tests: their texts, and the widgets that take the clicks.
    std::vector<QToolButton*> Chips() const;
    QToolButton& AddButton() { return m_add; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Follow();
    void Rebuild();
    void FillMenu();
    void MoveBy(std::int32_t column, int steps);
    void FocusBy(std::int32_t column, int steps);
    /// Nothing for a place that is not in the box.
    std::optional<std::size_t> PositionAt(QPoint place) const;
    void ShowDropAt(std::optional<std::size_t> position);

    Grid& m_grid;
    ColumnDrag m_drag;  // of chips
    QHBoxLayout& m_row;
    QLabel& m_hint;
    QToolButton& m_add;
    std::vector<GridOrderKey> m_shown;
    std::vector<GroupChip*> m_chips;
    std::optional<std::size_t> m_drop;  // where what is dragged would be put
    std::vector<Subscription> m_subscriptions;
};

}  // namespace dorvik
