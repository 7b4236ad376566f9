#pragma once

#include "workstation/controls/Grid.h"
#include "workstation/controls/ITableRows.h"

#include <cstdint>
#include <vector>

namespace dorvik {

/// The data rows of a grid as texts: the columns by which it is grouped first, then those that show. Check marks are
/// "Yes" or "No", and a column of pictures has the texts that describe them.
///
/// Which rows and columns these are is settled when this is made, values are read row by row: a record that the grid has lost
/// meanwhile has empty texts.
class GridTableRows final : public ITableRows {
public:
    /// All data rows in the order shown, those of collapsed groups among them. REQUIRES: `grid` outlives this.
    explicit GridTableRows(Grid& grid);
    /// Those of the keys.
    GridTableRows(Grid& grid, std::vector<std::int32_t> keys);

    std::vector<std::string> Headings() const override;
    std::size_t Count() const override { return m_keys.size(); }
    std::vector<std::string> Cells(std::size_t row) override;

private:
    Grid& m_grid;
    std::vector<std::int32_t> m_keys;
    std::vector<std::int32_t> m_columns;
};

}  // namespace dorvik
