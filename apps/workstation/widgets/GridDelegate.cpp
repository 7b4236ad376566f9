#include "GridDelegate.h"

#include "workstation/look/modPictures.h"
#include "workstation/look/modQt.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPolygonF>
#include <QStyle>
#include <QToolTip>

#include <algorithm>

namespace dorvik {

namespace {

/// As large as the font, which the style's own box is not.
QRect CheckBoxRect(const QStyleOptionViewItem& cell) {
    const int side = cell.fontMetrics.height() * 4 / 5;
    QRect box(0, 0, side, side);
    box.moveCenter(cell.rect.center());
    box.moveLeft(cell.rect.left() + side / 2);
    return QStyle::visualRect(cell.direction, cell.rect, box);
}

/// The style's own box is hardly seen on a dark surface.
void DrawCheckBox(
    QPainter& painter, const QRect& bounds, const QStyleOptionViewItem& cell, bool isChecked) {
    const QRectF box = QRectF(bounds).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(cell.palette.color(QPalette::PlaceholderText), box.width() / 12));
    painter.setBrush(cell.palette.base());
    painter.drawRoundedRect(box, box.width() / 8, box.width() / 8);
    if (isChecked) {
        QPen pen(cell.palette.color(QPalette::Text), box.width() / 7);
        pen.setCapStyle(Qt::RoundCap);
        painter.setPen(pen);
        const auto at = [&box](double x, double y) {
            return QPointF(box.x() + x * box.width(), box.y() + y * box.height());
        };
        painter.drawPolyline(QPolygonF({at(0.22, 0.52), at(0.42, 0.73), at(0.78, 0.28)}));
    }
    painter.restore();
}

}  // namespace

QStyleOptionViewItem
GridDelegate::Indented(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem indented = option;
    if (index.column() == 0) {
        const int depth = static_cast<int>(m_grid.Groups().size());
        indented.rect.adjust(depth * Indentation(option.fontMetrics), 0, 0, 0);
    }
    return indented;
}

void GridDelegate::paint(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem cell = Indented(option, index);
    if (option.state.testFlag(QStyle::State_Selected)) {  // what is left of the indented cell
        const QPalette::ColorGroup state =
            option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
        painter->fillRect(option.rect, option.palette.color(state, QPalette::Highlight));
    }
    initStyleOption(&cell, index);
    const bool hasBox = cell.features.testFlag(QStyleOptionViewItem::HasCheckIndicator);
    cell.features.setFlag(QStyleOptionViewItem::HasCheckIndicator, false);
    cell.widget->style()->drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);
    if (hasBox) {
        DrawCheckBox(*painter, CheckBoxRect(cell), cell, cell.checkState == Qt::Checked);
    }
    if (m_model.ShowsSeverity(index.column())) {
        DrawMark(*painter, cell, index);
    }
}

void GridDelegate::DrawMark(
    QPainter& painter, const QStyleOptionViewItem& cell, const QModelIndex& index) const {
    const auto key = m_grid.KeyOfRow(static_cast<std::size_t>(index.row()));
    if (!key) {
        return;
    }
    const int side = std::min(cell.fontMetrics.height(), cell.rect.height());
    QRect mark(0, 0, side, side);
    mark.moveCenter(cell.rect.center());
    if (cell.state.testFlag(QStyle::State_Selected)) {  // a disc that the mark is seen on
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(cell.palette.base());
        const int rim = std::min(side / 6, (cell.rect.height() - side) / 2);
        painter.drawEllipse(mark.adjusted(-rim, -rim, rim, rim));
        painter.restore();
    }
    modPictures::DrawSeverity(painter, mark, m_model.SeverityOf(*key, index.column()));
}

/// The whole cell takes the click, so that a box need not be hit exactly. What the keyboard does is the view's.
bool GridDelegate::editorEvent(
    QEvent* event,
    QAbstractItemModel* model,
    const QStyleOptionViewItem& option,
    const QModelIndex& index) {
    const QVariant state = index.data(Qt::CheckStateRole);
    if (event->type() != QEvent::MouseButtonRelease || !state.isValid()) {
        return false;
    }
    const auto& release = *static_cast<QMouseEvent*>(event);
    const QRect cell = Indented(option, index).rect;
    if (release.button() != Qt::LeftButton || release.modifiers() != Qt::NoModifier ||
        !cell.contains(release.position().toPoint())) {
        return false;
    }
    return model->setData(
        index, state.toInt() == Qt::Checked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

/// A tip shows what has no room in its cell, and what a mark means.
bool GridDelegate::helpEvent(
    QHelpEvent* event,
    QAbstractItemView* view,
    const QStyleOptionViewItem& option,
    const QModelIndex& index) {
    const QString tip = index.data(Qt::ToolTipRole).toString();
    const bool isCut =
        index.data().toString().isEmpty() || sizeHint(option, index).width() > option.rect.width();
    if (event->type() != QEvent::ToolTip || tip.isEmpty() || !isCut) {
        QToolTip::hideText();
        return false;
    }
    QToolTip::showText(event->globalPos(), tip.toHtmlEscaped(), view);
    return true;
}

QSize GridDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    size.setHeight(std::max(size.height(), option.fontMetrics.height() * 3 / 2));
    return size;
}

}  // namespace dorvik
