#pragma once

#include "workstation/controls/ListTable.h"

#include <QAbstractTableModel>

namespace dorvik {

/// A list of rows as Qt sees it.
///
/// REQUIRES: each change of the list is passed to `Apply` before Qt reads anything.
class ListTableModel final : public QAbstractTableModel {
public:
    /// REQUIRES: `list` outlives this.
    explicit ListTableModel(ListTable& list);

    void Apply(ListChange change, std::size_t index);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    ListTable& m_list;
    int m_rows = 0;
    int m_columns = 0;
};

}  // namespace dorvik
