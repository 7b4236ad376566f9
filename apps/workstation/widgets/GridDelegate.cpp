#include "GridDelegate.h"

#include "workstation/look/modPictures.h"
#include "workstation/look/modQt.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace dorvik {

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
    if (index.column() == 0) {  // what is left of the indented cell
        QStyledItemDelegate::paint(painter, option, {});
    }
    QStyledItemDelegate::paint(painter, Indented(option, index), index);
    if (!m_model.ShowsSeverity(index.column())) {
        return;
    }
    const auto key = m_grid.KeyOfRow(static_cast<std::size_t>(index.row()));
    if (!key) {
        return;
    }
    const int side = std::min(option.fontMetrics.height(), option.rect.height());
    QRect mark(0, 0, side, side);
    mark.moveCenter(option.rect.center());
    const std::int32_t severity = m_model.SeverityOf(*key, index.column());
    if (option.state.testFlag(QStyle::State_Selected)) {  // a disc that the mark is seen on
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(Qt::NoPen);
        painter->setBrush(option.palette.base());
        painter->drawEllipse(mark.adjusted(-1, -1, 1, 1));
        painter->restore();
        mark.adjust(2, 2, -2, -2);
    }
    modPictures::DrawSeverity(*painter, mark, severity);
}

bool GridDelegate::editorEvent(
    QEvent* event,
    QAbstractItemModel* model,
    const QStyleOptionViewItem& option,
    const QModelIndex& index) {
    if (event->type() == QEvent::KeyPress) {
        return false;  // the view checks all rows that are selected
    }
    return QStyledItemDelegate::editorEvent(event, model, Indented(option, index), index);
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
