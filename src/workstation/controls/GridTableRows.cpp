#include "workstation/controls/GridTableRows.h"

#include "workstation/controls/modGridOrder.h"

#include <algorithm>
#include <utility>

namespace dorvik {

namespace {

std::vector<std::int32_t> KeysOf(const Grid& grid) {
    std::vector<std::int32_t> keys;
    keys.reserve(grid.DataRowCount());
    for (std::size_t row = 0; row < grid.DataRowCount(); ++row) {
        keys.push_back(grid.KeyOfDataRow(row));
    }
    return keys;
}

std::vector<std::int32_t> ColumnsOf(const Grid& grid) {
    std::vector<std::int32_t> columns;
    const auto add = [&](std::int32_t column) {
        const std::int32_t described = modGridOrder::DescribingColumn(grid, column);
        if (std::find(columns.begin(), columns.end(), described) == columns.end()) {
            columns.push_back(described);
        }
    };
    for (const GridOrderKey& group : grid.Groups()) {
        add(group.Column);
    }
    for (std::int32_t column = 1; column <= static_cast<std::int32_t>(grid.Columns().size());
         ++column) {
        if (grid.Column(column).Visible) {
            add(column);
        }
    }
    return columns;
}

}  // namespace

GridTableRows::GridTableRows(Grid& grid) : GridTableRows(grid, KeysOf(grid)) {}

GridTableRows::GridTableRows(Grid& grid, std::vector<std::int32_t> keys)
    : m_grid(grid), m_keys(std::move(keys)), m_columns(ColumnsOf(grid)) {}

std::vector<std::string> GridTableRows::Headings() const {
    std::vector<std::string> headings;
    for (const std::int32_t column : m_columns) {
        headings.push_back(modGridOrder::TitleOf(m_grid, column));
    }
    return headings;
}

std::vector<std::string> GridTableRows::Cells(std::size_t row) {
    std::vector<std::string> cells;
    const std::int32_t key = m_keys.at(row);
    for (const std::int32_t column : m_columns) {
        if (m_grid.Column(column).IsCheckBox) {
            cells.emplace_back(m_grid.Value(key, column).AsLong() != 0 ? "Yes" : "No");
        } else {
            cells.push_back(m_grid.Shown(key, column).Text);
        }
    }
    return cells;
}

}  // namespace dorvik
