#pragma once

#include "workstation/controls/Event.h"
#include "workstation/controls/Grid.h"
#include "workstation/widgets/ColumnDrag.h"

#include <QTreeView>

#include <cstdint>
#include <vector>

class QMenu;

namespace dorvik {

class GridModel;

/// A grid on the screen. Group rows take the whole width, data rows are indented below them.
///
/// A click on a heading sorts, with Shift beside the other columns; a heading is dragged by `Headings`, which the group-by box
/// follows. Enter is a double click, Space sets check marks, + and - or Right and Left open and close groups, Ctrl+C copies
/// the selected rows. Rows are read when they are drawn.
class GridView final : public QTreeView {
public:
    /// REQUIRES: `grid` outlives this.
    explicit GridView(Grid& grid, QWidget* parent = nullptr);
    ~GridView() override;

    ColumnDrag& Headings() { return m_drag; }
    /// Where the popup that was requested last is to be shown, on the screen.
    QPoint PopupPosition() const { return m_popupPosition; }
    /// Those of the selected data rows, from above.
    std::vector<std::int32_t> SelectedKeys() const;

    /// Adds what clicks on the headings do.
    void FillSortMenu(QMenu& menu);

    /// Ctrl+C.
    Event<> CopyRequested;

    /// Rows are not searched by typing: there may be very many.
    void keyboardSearch(const QString&) override {}

protected:
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index)
        const override;
    void drawBranches(QPainter*, const QRect&, const QModelIndex&) const override {}
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    void MakeHeading();
    void Follow(GridChange change, std::size_t row);
    void FollowCurrent();
    void ShowOrder();
    void ApplyWidths();
    int WidthOf(int section) const;
    void TakeWidth(int section, int pixels);
    QRect GroupRowRect(const QModelIndex& index) const;
    QRect ExpanderRect(const QModelIndex& index, int level) const;
    std::optional<GridGroupRow> GroupAt(const QModelIndex& index) const;
    void ToggleGroup(const QModelIndex& index);
    bool HandleGroupKey(int key);
    void GoToGroupAbove(int row, std::int32_t level);
    void CheckSelected();

    Grid& m_grid;
    GridModel& m_model;
    ColumnDrag m_drag;
    QPoint m_popupPosition;
    bool m_following = false;  // while the grid's own changes are shown
    bool m_userMoves = false;  // while Qt moves to another row
    Subscription m_changed;
    Subscription m_headingClicked;
};

}  // namespace dorvik
