#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

/// Tables of what a list can be sorted by. Each row has a `Key`, which the user names.
namespace dorvik::modSortRows {

/// The row of that key; the first one for any other key.
template <typename Rows>
const auto& Find(const Rows& rows, std::string_view key) {
    const auto found =
        std::find_if(rows.begin(), rows.end(), [&](const auto& row) { return row.Key == key; });
    return found == rows.end() ? rows.front() : *found;
}

template <typename Rows>
std::vector<std::string> Keys(const Rows& rows) {
    std::vector<std::string> keys;
    for (const auto& row : rows) {
        keys.emplace_back(row.Key);
    }
    return keys;
}

}  // namespace dorvik::modSortRows
