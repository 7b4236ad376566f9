#include "TopRow.h"

#include "workstation/look/modQt.h"

#include <QGridLayout>
#include <QResizeEvent>

#include <algorithm>

namespace dorvik {

TopRow::TopRow(QWidget* parent)
    : QWidget(parent),
      m_grid(modQt::Make<QGridLayout>(this)),
      m_left(modQt::Make<QWidget>(this)),
      m_middle(modQt::Make<QWidget>(this)),
      m_right(modQt::Make<QWidget>(this)) {
    const int gap = fontMetrics().height() / 3;
    m_grid.setContentsMargins(gap, gap, gap, gap);
    m_grid.setHorizontalSpacing(2 * gap);
    m_grid.setVerticalSpacing(gap);
    m_grid.setColumnStretch(1, 1);
    m_grid.addWidget(&m_left, 0, 0);
    m_grid.addWidget(&m_right, 0, 2);
    Arrange(true);
}

void TopRow::Arrange(bool oneRow) {
    m_oneRow = oneRow;
    m_grid.removeWidget(&m_middle);
    m_grid.addWidget(&m_middle, oneRow ? 0 : 1, oneRow ? 1 : 0, 1, oneRow ? 1 : 3);
}

int TopRow::WidthOfOneRow() const {
    return m_left.minimumSizeHint().width() + m_middle.minimumSizeHint().width() +
           m_right.minimumSizeHint().width() + 2 * m_grid.horizontalSpacing();
}

QSize TopRow::minimumSizeHint() const {
    const QMargins around = m_grid.contentsMargins();
    const int above = m_left.minimumSizeHint().width() + m_right.minimumSizeHint().width() +
                      2 * m_grid.horizontalSpacing();
    return {
        std::max(above, m_middle.minimumSizeHint().width()) + around.left() + around.right(),
        m_grid.minimumSize().height()};
}

void TopRow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const bool fits = m_grid.contentsRect().width() >= WidthOfOneRow();
    if (fits != m_oneRow) {
        Arrange(fits);
        updateGeometry();
    }
}

}  // namespace dorvik
