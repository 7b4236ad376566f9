#pragma once

#include "workstation/controls/GridColumn.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace dorvik {

/// The values of a column as numbers that order as they do, one for each record. Equal values have equal numbers.
using GridRanks = std::vector<std::int32_t>;

/// A row of a grid that stands for the data rows below it. Groups are in the order shown, an outer one before those
/// in it.
struct GridGroup {
    std::uint32_t First = 0;  // its first data row, counted from 0 in the order shown
    std::uint32_t Count = 0;  // data rows
    std::uint8_t Level = 1;   // 1 for the outermost
    bool Expanded = true;
};

/// How the records of a grid are arranged in rows: their order, the groups, and which rows show. It holds four bytes for
/// each record, and the groups. Records are known by their position.
class GridArrangement {
public:
    /// A row as shown: a group, or a data row; the other number is nothing.
    struct Place {
        std::optional<std::size_t> Group;
        std::optional<std::size_t> DataRow;
    };

    /// The records in their own order, without groups.
    void Reset(std::size_t records);
    /// Sorts by one more column, which counts more than all before it. Equal records stay.
    void SortBy(const GridRanks& ranks, bool descending);
    /// Groups of adjoining records with equal ranks, the outermost level first. All are expanded.
    void GroupBy(const std::vector<GridRanks>& levels);

    std::size_t DataRowCount() const { return m_order.size(); }
    /// The record of a data row.
    std::size_t Record(std::size_t dataRow) const { return m_order.at(dataRow); }
    std::optional<std::size_t> DataRowOf(std::size_t record) const;

    const std::vector<GridGroup>& Groups() const { return m_groups; }
    void SetExpanded(std::size_t group, bool expanded);
    void ExpandAll(bool expanded);
    /// Expands the groups that hide a data row.
    void Reveal(std::size_t dataRow);

    /// Rows that show.
    std::size_t RowCount() const { return m_rowCount; }
    Place At(std::size_t row) const;
    /// Nothing for a group or data row in a collapsed group.
    std::optional<std::size_t> RowOfGroup(std::size_t group) const;
    std::optional<std::size_t> RowOfDataRow(std::size_t dataRow) const;
    /// The innermost group row that shows in place of a data row, or above it.
    std::optional<std::size_t> ShownGroupOf(std::size_t dataRow) const;

private:
    struct ShownGroup {
        std::uint32_t Row = 0;
        std::uint32_t Group = 0;
    };

    static void CloseGroup(GridGroup& group, std::size_t end);
    void FindShownGroups();

    std::vector<std::uint32_t> m_order;  // records
    std::vector<GridGroup> m_groups;
    std::vector<ShownGroup> m_shown;
    std::size_t m_rowCount = 0;
};

}  // namespace dorvik
