#include "workstation/controls/GridArrangement.h"

#include <algorithm>
#include <numeric>

namespace dorvik {

namespace {

/// The outermost level, from 0, at which two records belong to different groups; the number of levels where they
/// belong to the same ones.
std::size_t
LevelOfChange(const std::vector<GridRanks>& levels, std::size_t left, std::size_t right) {
    const auto differs = [&](const GridRanks& ranks) {
        return ranks[left] != ranks[right];
    };
    const auto found = std::find_if(levels.begin(), levels.end(), differs);
    return static_cast<std::size_t>(found - levels.begin());
}

}  // namespace

void GridArrangement::Reset(std::size_t records) {
    m_order.resize(records);
    m_order.shrink_to_fit();
    std::iota(m_order.begin(), m_order.end(), std::uint32_t{0});
    m_groups.clear();
    FindShownGroups();
}

void GridArrangement::SortBy(const GridRanks& ranks, bool descending) {
    std::stable_sort(m_order.begin(), m_order.end(), [&](std::uint32_t left, std::uint32_t right) {
        return descending ? ranks[right] < ranks[left] : ranks[left] < ranks[right];
    });
}

void GridArrangement::GroupBy(const std::vector<GridRanks>& levels) {
    m_groups.clear();
    std::vector<std::size_t> open;  // positions in m_groups, the outermost first
    for (std::size_t row = 0; row < m_order.size(); ++row) {
        const std::size_t kept =
            row == 0 ? 0 : LevelOfChange(levels, m_order[row - 1], m_order[row]);
        for (; open.size() > kept; open.pop_back()) {
            CloseGroup(m_groups[open.back()], row);
        }
        for (std::size_t level = kept; level < levels.size(); ++level) {
            open.push_back(m_groups.size());
            GridGroup group;
            group.First = static_cast<std::uint32_t>(row);
            group.Level = static_cast<std::uint8_t>(level + 1);
            m_groups.push_back(group);
        }
    }
    for (; !open.empty(); open.pop_back()) {
        CloseGroup(m_groups[open.back()], m_order.size());
    }
    FindShownGroups();
}

void GridArrangement::CloseGroup(GridGroup& group, std::size_t end) {
    group.Count = static_cast<std::uint32_t>(end) - group.First;
}

std::optional<std::size_t> GridArrangement::DataRowOf(std::size_t record) const {
    const auto found =
        std::find(m_order.begin(), m_order.end(), static_cast<std::uint32_t>(record));
    return found == m_order.end()
               ? std::nullopt
               : std::optional(static_cast<std::size_t>(found - m_order.begin()));
}

// ---- which rows show ----

void GridArrangement::SetExpanded(std::size_t group, bool expanded) {
    m_groups.at(group).Expanded = expanded;
    FindShownGroups();
}

void GridArrangement::ExpandAll(bool expanded) {
    for (GridGroup& group : m_groups) {
        group.Expanded = expanded;
    }
    FindShownGroups();
}

void GridArrangement::Reveal(std::size_t dataRow) {
    for (GridGroup& group : m_groups) {
        if (group.First <= dataRow && dataRow - group.First < group.Count) {
            group.Expanded = true;
        }
    }
    FindShownGroups();
}

void GridArrangement::FindShownGroups() {
    m_shown.clear();
    if (m_groups.empty()) {
        m_rowCount = m_order.size();
        return;
    }
    const std::uint8_t innermost =
        std::max_element(m_groups.begin(), m_groups.end(), [](const auto& left, const auto& right) {
            return left.Level < right.Level;
        })->Level;
    std::uint32_t row = 0;
    std::uint32_t hiddenUntil = 0;  // data rows before this one are in a collapsed group
    for (std::size_t index = 0; index < m_groups.size(); ++index) {
        const GridGroup& group = m_groups[index];
        if (group.First < hiddenUntil) {
            continue;
        }
        m_shown.push_back({row, static_cast<std::uint32_t>(index)});
        ++row;
        if (!group.Expanded) {
            hiddenUntil = group.First + group.Count;
        } else if (group.Level == innermost) {
            row += group.Count;
        }
    }
    m_rowCount = row;
}

GridArrangement::Place GridArrangement::At(std::size_t row) const {
    if (m_groups.empty()) {
        return {std::nullopt, row};
    }
    const auto after = std::upper_bound(
        m_shown.begin(), m_shown.end(), row, [](std::size_t sought, const ShownGroup& shown) {
            return sought < shown.Row;
        });
    const ShownGroup& shown = *(after - 1);
    if (shown.Row == row) {
        return {shown.Group, std::nullopt};
    }
    return {std::nullopt, m_groups[shown.Group].First + (row - shown.Row - 1)};
}

std::optional<std::size_t> GridArrangement::RowOfGroup(std::size_t group) const {
    const auto found = std::lower_bound(
        m_shown.begin(), m_shown.end(), group, [](const ShownGroup& shown, std::size_t sought) {
            return shown.Group < sought;
        });
    return found == m_shown.end() || found->Group != group ? std::nullopt
                                                           : std::optional<std::size_t>(found->Row);
}

std::optional<std::size_t> GridArrangement::RowOfDataRow(std::size_t dataRow) const {
    if (m_groups.empty()) {
        return dataRow;
    }
    const std::size_t index = *ShownGroupOf(dataRow);
    const GridGroup& group = m_groups[index];
    const bool isInnermost =
        index + 1 == m_groups.size() || m_groups[index + 1].Level <= group.Level;
    if (!group.Expanded || !isInnermost) {
        return std::nullopt;
    }
    return *RowOfGroup(index) + 1 + (dataRow - group.First);
}

std::optional<std::size_t> GridArrangement::ShownGroupOf(std::size_t dataRow) const {
    const auto after = std::upper_bound(
        m_shown.begin(), m_shown.end(), dataRow, [&](std::size_t sought, const ShownGroup& shown) {
            return sought < m_groups[shown.Group].First;
        });
    return after == m_shown.begin() ? std::nullopt : std::optional<std::size_t>((after - 1)->Group);
}

}  // namespace dorvik
