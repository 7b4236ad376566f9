#pragma once

#include "workstation/controls/Event.h"
#include "workstation/controls/GridColumn.h"
#include "workstation/widgets/ColumnDrag.h"

#include <QToolButton>

#include <cstdint>
#include <functional>
#include <vector>

namespace dorvik {

/// The part of a chip that has its caption. It is clicked, dragged and has the keyboard.
class GroupChipButton final : public QToolButton {
public:
    GroupChipButton(std::int32_t column, ColumnDrag& drag, QWidget* parent);

    Event<int> MoveRequested;   // by that many places
    Event<int> FocusRequested;  // on the chip that many places away
    Event<> RemoveRequested;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    std::int32_t m_column;
    ColumnDrag& m_drag;
};

/// A group in the group-by box.
class GroupChip final : public QWidget {
public:
    /// REQUIRES: `drag` outlives this.
    GroupChip(const GridOrderKey& group, const QString& title, ColumnDrag& drag, QWidget* parent);

    std::int32_t Column() const { return m_column; }
    GroupChipButton& Button() { return m_button; }
    /// What the keys of the button do: to move by some places, to go to another chip, to remove.
    void SetKeys(
        std::function<void(int)> move,
        std::function<void(int)> focus,
        std::function<void()> remove);
    QToolButton& Cross() { return m_cross; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::int32_t m_column;
    GroupChipButton& m_button;
    QToolButton& m_cross;
    std::vector<Subscription> m_keys;
};

}  // namespace dorvik
