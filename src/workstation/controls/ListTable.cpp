#include "workstation/controls/ListTable.h"

#include "base/modTextCase.h"
#include "modKeySearch.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace dorvik {

namespace {

std::string_view TextOf(const ListRow& row, std::size_t column) {
    return column < row.Cells.size() ? std::string_view(row.Cells[column].Text)
                                     : std::string_view();
}

}  // namespace

void ListTable::SetColumns(std::vector<ListColumn> columns) {
    m_columns = std::move(columns);
    Changed.Raise(ListChange::Columns, 0);
}

void ListTable::SetColumnText(std::size_t column, std::string text) {
    m_columns.at(column).Text = std::move(text);
    Changed.Raise(ListChange::Columns, column);
}

void ListTable::ShowSortIcon(std::size_t column, bool ascending) {
    const std::string icon = ascending ? "SortAscending" : "SortDescending";
    for (std::size_t index = 0; index < m_columns.size(); ++index) {
        m_columns[index].SortIcon = index == column ? icon : std::string();
        Changed.Raise(ListChange::Columns, index);
    }
}

void ListTable::SetWidth(std::size_t column, double width) {
    m_columns.at(column).Width = width;
    Changed.Raise(ListChange::Columns, column);
}

void ListTable::Clear() {
    m_rows.clear();
    m_order.clear();
    m_selected.reset();
    Changed.Raise(ListChange::Rows, 0);
}

void ListTable::Add(ListRow row) {
    m_order.push_back(m_rows.size());
    m_rows.push_back(std::move(row));
    Changed.Raise(ListChange::RowAdded, m_order.size() - 1);
}

void ListTable::SetCell(std::size_t row, std::size_t column, ListCell cell) {
    m_rows[m_order.at(row)].Cells.at(column) = std::move(cell);
    Changed.Raise(ListChange::Cell, row);
}

std::optional<std::size_t> ListTable::Find(std::string_view key) const {
    return modKeySearch::Find(m_order, key, [this](std::size_t position) -> const std::string& {
        return m_rows[position].Key;
    });
}

void ListTable::Sort(std::size_t column, bool ascending) {
    std::stable_sort(m_order.begin(), m_order.end(), [&](std::size_t left, std::size_t right) {
        const int compared =
            modTextCase::Compare(TextOf(m_rows[left], column), TextOf(m_rows[right], column));
        return ascending ? compared < 0 : compared > 0;
    });
    Changed.Raise(ListChange::Order, column);
}

void ListTable::RestoreOrder() {
    std::iota(m_order.begin(), m_order.end(), std::size_t{0});
    Changed.Raise(ListChange::Order, 0);
}

std::optional<std::size_t> ListTable::SelectedIndex() const {
    if (!m_selected) {
        return std::nullopt;
    }
    const auto found = std::find(m_order.begin(), m_order.end(), *m_selected);
    return static_cast<std::size_t>(found - m_order.begin());
}

const ListRow* ListTable::SelectedRow() const {
    return m_selected ? &m_rows[*m_selected] : nullptr;
}

void ListTable::Select(std::optional<std::size_t> row) {
    m_selected = row && *row < m_order.size() ? std::optional(m_order[*row]) : std::nullopt;
    Changed.Raise(ListChange::Selection, row.value_or(0));
}

void ListTable::Choose(std::size_t row) {
    Select(row);
    SelectionChosen.Raise();
}

void ListTable::DoubleClick(std::size_t row) {
    Select(row);
    DoubleClicked.Raise();
}

void ListTable::ClickColumn(std::size_t column) {
    ColumnClicked.Raise(column);
}

}  // namespace dorvik
