#include "GridModel.h"

#include "workstation/controls/modGridOrder.h"
#include "workstation/look/modPictures.h"
#include "workstation/look/modQt.h"

namespace dorvik {

GridModel::GridModel(Grid& grid) : m_grid(grid), m_rows(static_cast<int>(grid.RowCount())) {
    for (std::int32_t column = 1; column <= static_cast<std::int32_t>(grid.Columns().size());
         ++column) {
        if (grid.Column(column).Visible) {
            m_columns.push_back(column);
        }
    }
}

/// Qt is to hear of rows before they come and go, and the grid reports them afterwards: until then this keeps the
/// number that Qt knows of.
void GridModel::Apply(GridChange change, std::size_t row) {
    const int last = static_cast<int>(m_columns.size()) - 1;
    const int changed = static_cast<int>(row);
    const int rows = static_cast<int>(m_grid.RowCount());
    switch (change) {
        case GridChange::Column:
            Q_EMIT headerDataChanged(Qt::Horizontal, 0, last);
            if (m_rows > 0) {
                Q_EMIT dataChanged(index(0, 0), index(m_rows - 1, last));
            }
            break;
        case GridChange::Rows:
            beginResetModel();
            m_rows = rows;
            endResetModel();
            break;
        case GridChange::RowsFrom:
            if (rows < m_rows) {
                beginRemoveRows({}, changed + 1, changed + m_rows - rows);
                m_rows = rows;
                endRemoveRows();
            } else if (rows > m_rows) {
                beginInsertRows({}, changed + 1, changed + rows - m_rows);
                m_rows = rows;
                endInsertRows();
            }
            Q_EMIT dataChanged(index(changed, 0), index(changed, last));
            break;
        case GridChange::Row: Q_EMIT dataChanged(index(changed, 0), index(changed, last)); break;
        case GridChange::Current: break;
    }
}

std::int32_t GridModel::ColumnOf(int section) const {
    return m_columns.at(static_cast<std::size_t>(section));
}

bool GridModel::ShowsSeverity(int section) const {
    const GridColumn& column = m_grid.Column(ColumnOf(section));
    return column.HasValueList && column.Ordering == GridOrdering::Number;
}

bool GridModel::HasText(int section) const {
    return !m_grid.Column(ColumnOf(section)).IsCheckBox && !ShowsSeverity(section);
}

Qt::Alignment GridModel::AlignmentOf(int section) const {
    const bool isNumber = m_grid.Column(ColumnOf(section)).Ordering == GridOrdering::Number;
    return Qt::AlignVCenter | (HasText(section) && isNumber ? Qt::AlignRight : Qt::AlignLeft);
}

std::int32_t GridModel::SeverityOf(std::int32_t key, int section) const {
    return m_grid.Value(key, ColumnOf(section)).AsLong();
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_rows;
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

bool GridModel::hasChildren(const QModelIndex& parent) const {
    return !parent.isValid() && m_rows > 0;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    const auto row = static_cast<std::size_t>(index.row());
    if (!index.isValid() || row >= m_grid.RowCount()) {
        return {};
    }
    if (const std::optional<GridGroupRow> group = m_grid.GroupRow(row)) {
        return GroupData(*group, index, role);
    }
    return CellData(m_grid.KeyOfRow(row).value(), index.column(), role);
}

QVariant GridModel::GroupData(const GridGroupRow& group, const QModelIndex& index, int role) const {
    if (index.column() != 0) {
        return {};
    }
    switch (role) {
        case Qt::DisplayRole:
            return modQt::Text(m_grid.GroupText(static_cast<std::size_t>(index.row())));
        case Qt::AccessibleTextRole:
            return QStringLiteral("%1, %2, level %3")
                .arg(
                    modQt::Text(m_grid.GroupText(static_cast<std::size_t>(index.row()))),
                    group.Expanded ? QStringLiteral("expanded") : QStringLiteral("collapsed"))
                .arg(group.Level);
        default: return {};
    }
}

QVariant GridModel::CellData(std::int32_t key, int section, int role) const {
    const std::int32_t number = ColumnOf(section);
    const GridColumn& column = m_grid.Column(number);
    switch (role) {
        case Qt::DisplayRole:
            return HasText(section) ? modQt::Text(m_grid.Shown(key, number).Text) : QString();
        case Qt::CheckStateRole:
            if (!column.IsCheckBox) {
                return {};
            }
            return m_grid.Value(key, number).AsLong() != 0 ? Qt::Checked : Qt::Unchecked;
        case Qt::TextAlignmentRole: return QVariant::fromValue(AlignmentOf(section));
        case Qt::ToolTipRole: return column.IsCheckBox ? QString() : DescriptionOf(key, section);
        case Qt::AccessibleTextRole: return DescriptionOf(key, section);
        default: return {};
    }
}

QString GridModel::DescriptionOf(std::int32_t key, int section) const {
    const std::int32_t column = ColumnOf(section);
    if (m_grid.Column(column).IsCheckBox) {
        return modQt::Text(modGridOrder::TitleOf(m_grid, column));
    }
    return modQt::Text(m_grid.Shown(key, modGridOrder::DescribingColumn(m_grid, column)).Text);
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::CheckStateRole || !index.isValid()) {
        return false;
    }
    const auto key = m_grid.KeyOfRow(static_cast<std::size_t>(index.row()));
    if (key) {
        m_grid.Check(*key, value.toInt() == Qt::Checked);
    }
    return key.has_value();
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) {
        return {};
    }
    const std::int32_t number = ColumnOf(section);
    const GridColumn& column = m_grid.Column(number);
    switch (role) {
        case Qt::DisplayRole: return modQt::Text(column.Caption);
        case Qt::TextAlignmentRole: return QVariant::fromValue(AlignmentOf(section));
        case Qt::DecorationRole:
            return column.IsCheckBox ? QVariant(modPictures::Icon("Checked")) : QVariant();
        case Qt::ToolTipRole:
        case Qt::AccessibleTextRole: return modQt::Text(modGridOrder::TitleOf(m_grid, number));
        default: return {};
    }
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
    if (index.isValid() && m_grid.Column(ColumnOf(index.column())).IsCheckBox) {
        flags |= Qt::ItemIsUserCheckable;
    }
    return flags;
}

}  // namespace dorvik
