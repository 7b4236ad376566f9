#pragma once

#include "workstation/controls/Grid.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// What a user does to the order and the groups of a grid, by its headings and its group-by box. Columns are numbered
/// from 1.
namespace dorvik::modGridOrder {

/// Sorts by a column: ascending, or the other way where it is ascending already. Other sort keys are kept, and count
/// more, if `keepsOthers`.
void ClickHeading(Grid& grid, std::int32_t column, bool keepsOthers);

/// The column that has texts for the values of a column of pictures; any other column is its own.
std::int32_t DescribingColumn(const Grid& grid, std::int32_t column);
/// What the user calls a column: its caption, or its key where it has none.
const std::string& TitleOf(const Grid& grid, std::int32_t column);
/// Columns by which the rows can be grouped and are not yet.
std::vector<std::int32_t> ColumnsToGroupBy(const Grid& grid);

/// Puts a group at a position, from 0, the outermost first; one that is there already is moved, and keeps its direction.
void PlaceGroup(Grid& grid, std::int32_t column, std::size_t position);
void RemoveGroup(Grid& grid, std::int32_t column);
/// From ascending to descending, and back.
void TurnGroup(Grid& grid, std::int32_t column);

}  // namespace dorvik::modGridOrder
