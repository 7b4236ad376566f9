#include "GridHeading.h"

#include "workstation/controls/modGridOrder.h"
#include "workstation/look/modQt.h"

#include <QMouseEvent>

namespace dorvik {

GridHeading::GridHeading(
    const Grid& grid, const GridModel& model, ColumnDrag& drag, QWidget* parent)
    : SortHeading(parent), m_grid(grid), m_model(model), m_drag(drag) {
    QObject::connect(this, &QHeaderView::sectionClicked, this, [this](int section) {
        if (!m_dragged) {
            Clicked.Raise(section);
        }
    });
}

void GridHeading::mousePressEvent(QMouseEvent* event) {
    QHeaderView::mousePressEvent(event);
    m_dragged = false;
    m_resizing = cursor().shape() == Qt::SplitHCursor;
    const int section = logicalIndexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && section >= 0 && !m_resizing) {
        const std::int32_t column =
            modGridOrder::DescribingColumn(m_grid, m_model.ColumnOf(section));
        m_drag.Press(
            column,
            modQt::Text(modGridOrder::TitleOf(m_grid, column)),
            event->globalPosition().toPoint());
    }
}

void GridHeading::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons().testFlag(Qt::LeftButton) && !m_resizing &&
        m_drag.Move(event->globalPosition().toPoint())) {
        m_dragged = true;
        return;
    }
    QHeaderView::mouseMoveEvent(event);
}

void GridHeading::mouseReleaseEvent(QMouseEvent* event) {
    m_drag.Release(event->globalPosition().toPoint());
    QHeaderView::mouseReleaseEvent(event);
}

}  // namespace dorvik
