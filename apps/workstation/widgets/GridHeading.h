#pragma once

#include "GridModel.h"
#include "SortHeading.h"
#include "workstation/widgets/ColumnDrag.h"

namespace dorvik {

/// The headings of a grid: they are clicked, and dragged with the mouse.
class GridHeading final : public SortHeading {
public:
    /// REQUIRES: all of them outlive this.
    GridHeading(const Grid& grid, const GridModel& model, ColumnDrag& drag, QWidget* parent);

    Event<int> Clicked;  // with the section

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    const Grid& m_grid;
    const GridModel& m_model;
    ColumnDrag& m_drag;
    bool m_resizing = false;
    bool m_dragged = false;
};

}  // namespace dorvik
