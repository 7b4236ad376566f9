#include "workstation/controls/modGridOrder.h"

#include <algorithm>
#include <utility>

namespace dorvik::modGridOrder {

namespace {

auto Of(std::int32_t column) {
    return [column](const GridOrderKey& key) {
        return key.Column == column;
    };
}

bool ShowsPictures(const GridColumn& column) {
    return column.HasValueList && column.Ordering == GridOrdering::Number;
}

}  // namespace

void ClickHeading(Grid& grid, std::int32_t column, bool keepsOthers) {
    std::vector<GridOrderKey> keys = grid.SortKeys();
    const auto found = std::find_if(keys.begin(), keys.end(), Of(column));
    const bool descending = found != keys.end() && !found->Descending;
    if (!keepsOthers) {
        keys = {{column, descending}};
    } else if (found != keys.end()) {
        found->Descending = descending;
    } else {
        keys.push_back({column, descending});
    }
    grid.SetSortKeys(std::move(keys));
}

std::int32_t DescribingColumn(const Grid& grid, std::int32_t column) {
    if (!ShowsPictures(grid.Column(column))) {
        return column;
    }
    const auto found =
        std::find_if(grid.Columns().begin(), grid.Columns().end(), [&](const GridColumn& other) {
            return other.Field == grid.Column(column).Field && other.HasValueList &&
                   !ShowsPictures(other);
        });
    return found == grid.Columns().end()
               ? column
               : static_cast<std::int32_t>(found - grid.Columns().begin()) + 1;
}

const std::string& TitleOf(const Grid& grid, std::int32_t column) {
    const GridColumn& named = grid.Column(column);
    return named.Caption.empty() ? named.Key : named.Caption;
}

std::vector<std::int32_t> ColumnsToGroupBy(const Grid& grid) {
    std::vector<std::int32_t> columns;
    for (std::int32_t column = 1; column <= static_cast<std::int32_t>(grid.Columns().size());
         ++column) {
        const bool isForTheUser =
            grid.Column(column).Visible || !grid.Column(column).Caption.empty();
        if (isForTheUser && DescribingColumn(grid, column) == column && !grid.HasGroup(column)) {
            columns.push_back(column);
        }
    }
    return columns;
}

void PlaceGroup(Grid& grid, std::int32_t column, std::size_t position) {
    std::vector<GridOrderKey> groups = grid.Groups();
    GridOrderKey group{column};
    const auto found = std::find_if(groups.begin(), groups.end(), Of(column));
    if (found != groups.end()) {
        group = *found;
        position -= static_cast<std::size_t>(found - groups.begin()) < position ? 1 : 0;
        groups.erase(found);
    }
    position = std::min(position, groups.size());
    groups.insert(groups.begin() + static_cast<std::ptrdiff_t>(position), group);
    if (groups != grid.Groups()) {
        grid.ChooseGroups(std::move(groups));
    }
}

void RemoveGroup(Grid& grid, std::int32_t column) {
    std::vector<GridOrderKey> groups = grid.Groups();
    if (std::erase_if(groups, Of(column)) > 0) {
        grid.ChooseGroups(std::move(groups));
    }
}

void TurnGroup(Grid& grid, std::int32_t column) {
    std::vector<GridOrderKey> groups = grid.Groups();
    const auto found = std::find_if(groups.begin(), groups.end(), Of(column));
    if (found != groups.end()) {
        found->Descending = !found->Descending;
        grid.ChooseGroups(std::move(groups));
    }
}

}  // namespace dorvik::modGridOrder
