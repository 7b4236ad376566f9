#include "ListTableModel.h"

#include "workstation/look/modPictures.h"
#include "workstation/look/modQt.h"

#include <QColor>
#include <QFont>

#include <algorithm>

namespace dorvik {

namespace {

/// Numbers are padded with blanks so that they are sorted by their size.
std::string_view WithoutPadding(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

QVariant CellData(const ListCell& cell, int role) {
    switch (role) {
        case Qt::DisplayRole: return modQt::Text(WithoutPadding(cell.Text));
        case Qt::ForegroundRole:
            return cell.Colour.Automatic
                       ? QVariant()
                       : QColor(cell.Colour.Red, cell.Colour.Green, cell.Colour.Blue);
        case Qt::FontRole: {
            if (!cell.Bold) {
                return {};
            }
            QFont font;
            font.setBold(true);
            return font;
        }
        default: return {};
    }
}

}  // namespace

ListTableModel::ListTableModel(ListTable& list)
    : m_list(list),
      m_rows(static_cast<int>(list.Count())),
      m_columns(static_cast<int>(list.Columns().size())) {}

void ListTableModel::Apply(ListChange change, std::size_t index) {
    switch (change) {
        case ListChange::Columns:
            if (m_columns == static_cast<int>(m_list.Columns().size())) {
                Q_EMIT headerDataChanged(Qt::Horizontal, 0, m_columns - 1);
                break;
            }
            [[fallthrough]];
        case ListChange::Rows:
        case ListChange::Order:
            beginResetModel();
            m_rows = static_cast<int>(m_list.Count());
            m_columns = static_cast<int>(m_list.Columns().size());
            endResetModel();
            break;
        case ListChange::RowAdded:
            beginInsertRows({}, m_rows, m_rows);
            ++m_rows;
            endInsertRows();
            break;
        case ListChange::Cell: {
            const int row = static_cast<int>(index);
            Q_EMIT dataChanged(this->index(row, 0), this->index(row, m_columns - 1));
            break;
        }
        case ListChange::Selection: break;
    }
}

int ListTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_rows;
}

int ListTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_columns;
}

bool ListTableModel::hasChildren(const QModelIndex& parent) const {
    return !parent.isValid() && m_rows > 0;
}

QVariant ListTableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || static_cast<std::size_t>(index.row()) >= m_list.Count()) {
        return {};
    }
    const auto column = static_cast<std::size_t>(index.column());
    const ListRow& row = m_list.Row(static_cast<std::size_t>(index.row()));
    if (role == Qt::TextAlignmentRole) {
        const bool isRight = m_list.Columns()[column].Alignment == ColumnAlignment::Right;
        return QVariant::fromValue(Qt::AlignVCenter | (isRight ? Qt::AlignRight : Qt::AlignLeft));
    }
    if (role == Qt::DecorationRole) {
        return column == 0 && !row.Icon.empty() ? QVariant(modPictures::Icon(row.Icon))
                                                : QVariant();
    }
    return column < row.Cells.size() ? CellData(row.Cells[column], role) : QVariant();
}

QVariant ListTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= m_columns) {
        return {};
    }
    const ListColumn& column = m_list.Columns()[static_cast<std::size_t>(section)];
    switch (role) {
        case Qt::DisplayRole: return modQt::Text(column.Text);
        case Qt::TextAlignmentRole:
            return QVariant::fromValue(
                Qt::AlignVCenter |
                (column.Alignment == ColumnAlignment::Right ? Qt::AlignRight : Qt::AlignLeft));
        default: return {};
    }
}

Qt::ItemFlags ListTableModel::flags(const QModelIndex&) const {
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
}

}  // namespace dorvik
