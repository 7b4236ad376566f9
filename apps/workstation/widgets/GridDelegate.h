#pragma once

#include "GridModel.h"

#include <QStyledItemDelegate>

namespace dorvik {

/// Draws the cells of data rows: the first is indented by the depth of the groups, severities are marks.
class GridDelegate final : public QStyledItemDelegate {
public:
    /// REQUIRES: all of them outlive this.
    GridDelegate(const Grid& grid, const GridModel& model, QObject* parent)
        : QStyledItemDelegate(parent), m_grid(grid), m_model(model) {}

    /// How far a level of groups is indented.
    static int Indentation(const QFontMetrics& font) { return font.height(); }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index)
        const override;
    bool editorEvent(
        QEvent* event,
        QAbstractItemModel* model,
        const QStyleOptionViewItem& option,
        const QModelIndex& index) override;
    bool helpEvent(
        QHelpEvent* event,
        QAbstractItemView* view,
        const QStyleOptionViewItem& option,
        const QModelIndex& index) override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    void
    DrawMark(QPainter& painter, const QStyleOptionViewItem& cell, const QModelIndex& index) const;
    QStyleOptionViewItem
    Indented(const QStyleOptionViewItem& option, const QModelIndex& index) const;

    const Grid& m_grid;
    const GridModel& m_model;
};

}  // namespace dorvik
