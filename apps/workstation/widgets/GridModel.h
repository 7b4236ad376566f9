#pragma once

#include "workstation/controls/Grid.h"

#include <QAbstractTableModel>

#include <vector>

namespace dorvik {

/// A grid as Qt sees it: a flat table of the rows that show, group rows among them, and of the columns that show. It keeps no
/// values: each is read from the grid when Qt wants it.
///
/// REQUIRES: each change of the grid is passed to `Apply` before Qt reads anything.
class GridModel final : public QAbstractTableModel {
public:
    /// REQUIRES: `grid` outlives this.
    explicit GridModel(Grid& grid);

    void Apply(GridChange change, std::size_t row);

    /// The number that the grid has for a column of Qt's.
    std::int32_t ColumnOf(int section) const;
    /// Whether the column shows marks of severity in place of texts.
    bool ShowsSeverity(int section) const;
    std::int32_t SeverityOf(std::int32_t key, int section) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    QVariant GroupData(const GridGroupRow& group, const QModelIndex& index, int role) const;
    QVariant CellData(std::int32_t key, int section, int role) const;
    bool HasText(int section) const;
    Qt::Alignment AlignmentOf(int section) const;
    QString DescriptionOf(std::int32_t key, int section) const;

    Grid& m_grid;
    std::vector<std::int32_t> m_columns;
    int m_rows = 0;
};

}  // namespace dorvik
