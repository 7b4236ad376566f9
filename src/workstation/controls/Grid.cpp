#include "workstation/controls/Grid.h"

#include "base/BasicError.h"
#include "foundation/log/Trap.h"
#include "modKeySearch.h"

#include <algorithm>
#include <utility>

namespace dorvik {

namespace {

/// The text of a group whose value shows nothing.
constexpr std::string_view kNoText = "(none)";

/// Runs a part of an operation that reads or writes records. What it raises is reported.
template <typename Body>
void Guarded(const Event<std::int32_t>& failed, Body&& body) {
    Handled(std::forward<Body>(body), [&](const BasicError& failure) {
        failed.Raise(failure.Number());
        return true;
    });
}

auto OnColumn(std::int32_t column) {
    return [column](const GridOrderKey& key) {
        return key.Column == column;
    };
}

std::vector<GridOrderKey> OfKnownColumns(std::vector<GridOrderKey> keys, std::size_t columns) {
    std::erase_if(keys, [columns](const GridOrderKey& key) {
        return key.Column < 1 || static_cast<std::size_t>(key.Column) > columns;
    });
    return keys;
}

}  // namespace

Grid::Grid(std::vector<GridColumn> columns)
    : m_columns(std::move(columns)), m_valueLists(m_columns.size()) {}

// ---- columns ----

const GridColumn& Grid::Column(std::int32_t column) const {
    return m_columns.at(static_cast<std::size_t>(column) - 1);
}

std::optional<std::int32_t> Grid::FindColumn(std::string_view key) const {
    const std::optional<std::size_t> place = modKeySearch::Find(m_columns, key, &GridColumn::Key);
    return place ? std::optional(static_cast<std::int32_t>(*place) + 1) : std::nullopt;
}

void Grid::SetWidth(std::int32_t column, double width) {
    m_columns.at(static_cast<std::size_t>(column) - 1).Width = width;
    Changed.Raise(GridChange::Column, static_cast<std::size_t>(column));
}

const GridValueList& Grid::ValueList(std::int32_t column) const {
    return m_valueLists.at(static_cast<std::size_t>(column) - 1);
}

void Grid::SetValueList(std::int32_t column, GridValueList list) {
    m_valueLists.at(static_cast<std::size_t>(column) - 1) = std::move(list);
    Changed.Raise(GridChange::Column, static_cast<std::size_t>(column));
}

// ---- records ----

void Grid::Bind(IGridRecords* records) {
    m_binding.Bind(records);
    Rebind();
}

void Grid::Rebind(std::optional<std::vector<GridOrderKey>> groups) {
    if (groups) {
        m_groups = OfKnownColumns(std::move(*groups), m_columns.size());
    }
    Guarded(Failed, [&] { m_binding.ReadKeys(); });
    m_current.reset();
    Arrange();
    CurrentRowChanged.Raise();
}

/// Sorts by the least column first: each sort keeps what those before it have done.
void Grid::Arrange() {
    m_arrangement.Reset(m_binding.Count());
    Guarded(Failed, [&] {
        std::for_each(m_sortKeys.rbegin(), m_sortKeys.rend(), [&](const GridOrderKey& key) {
            m_arrangement.SortBy(
                m_binding.Ranks(Column(key.Column), ValueList(key.Column)), key.Descending);
        });
        std::vector<GridRanks> levels;
        for (const GridOrderKey& group : m_groups) {
            levels.push_back(m_binding.Ranks(Column(group.Column), ValueList(group.Column)));
        }
        for (std::size_t level = levels.size(); level-- > 0;) {
            m_arrangement.SortBy(levels[level], m_groups[level].Descending);
        }
        m_arrangement.GroupBy(levels);
    });
    Changed.Raise(GridChange::Rows, 0);
}

// ---- rows ----

std::optional<GridGroupRow> Grid::GroupRow(std::size_t row) const {
    const auto index = m_arrangement.At(row).Group;
    if (!index) {
        return std::nullopt;
    }
    const GridGroup& group = m_arrangement.Groups()[*index];
    return GridGroupRow{
        m_groups.at(group.Level - std::size_t{1}).Column, group.Level, group.Count, group.Expanded};
}

std::string Grid::GroupText(std::size_t row) {
    const std::optional<GridGroupRow> group = GroupRow(row);
    if (!group) {
        return {};
    }
    const std::size_t first = m_arrangement.Groups()[*m_arrangement.At(row).Group].First;
    std::string text = Shown(KeyOfDataRow(first), group->Column).Text;
    if (text.empty()) {
        text = kNoText;
    }
    return m_groupTextRule ? m_groupTextRule(*group, std::move(text)) : text;
}

std::optional<std::int32_t> Grid::KeyOfRow(std::size_t row) const {
    const auto dataRow = m_arrangement.At(row).DataRow;
    return dataRow ? std::optional(KeyOfDataRow(*dataRow)) : std::nullopt;
}

std::int32_t Grid::KeyOfDataRow(std::size_t dataRow) const {
    return m_binding.Key(m_arrangement.Record(dataRow));
}

Variant Grid::Value(std::int32_t key, std::int32_t column) {
    Variant value;
    if (m_binding.PositionOf(key)) {
        Guarded(Failed, [&] { value = m_binding.Value(key, column, m_columns); });
    }
    return value;
}

GridValue Grid::Shown(std::int32_t key, std::int32_t column) {
    std::string text = Value(key, column).AsText();
    if (!Column(column).HasValueList) {
        return {std::move(text)};
    }
    const GridValue* const found = ValueList(column).Find(text);
    GridValue shown = found != nullptr ? *found : GridValue();
    if (Column(column).Ordering == GridOrdering::Number) {
        shown.Text = std::move(text);  // the list has pictures only
    }
    return shown;
}

void Grid::SetExpanded(std::size_t row, bool expanded) {
    const auto group = m_arrangement.At(row).Group;
    if (!group) {
        return;
    }
    m_arrangement.SetExpanded(*group, expanded);
    Changed.Raise(GridChange::RowsFrom, row);
    KeepCurrentShown();
}

void Grid::ExpandAll(bool expanded) {
    m_arrangement.ExpandAll(expanded);
    Changed.Raise(GridChange::Rows, 0);
    KeepCurrentShown();
}

// ---- the current row ----

std::optional<std::size_t> Grid::CurrentRow() const {
    if (!m_current) {
        return std::nullopt;
    }
    if (m_current->IsGroup) {
        return m_arrangement.RowOfGroup(m_current->Position);
    }
    const auto dataRow = m_arrangement.DataRowOf(m_current->Position);
    return dataRow ? m_arrangement.RowOfDataRow(*dataRow) : std::nullopt;
}

std::optional<std::int32_t> Grid::CurrentKey() const {
    return m_current && !m_current->IsGroup ? std::optional(m_binding.Key(m_current->Position))
                                            : std::nullopt;
}

void Grid::SetCurrentRow(std::optional<std::size_t> row) {
    m_current.reset();
    if (row && *row < RowCount()) {
        const GridArrangement::Place place = m_arrangement.At(*row);
        m_current = place.Group ? Current{true, *place.Group}
                                : Current{false, m_arrangement.Record(*place.DataRow)};
    }
    Changed.Raise(GridChange::Current, row.value_or(0));
    CurrentRowChanged.Raise();
}

/// The group row that hides the current row becomes current in its place.
void Grid::KeepCurrentShown() {
    if (!m_current || CurrentRow()) {
        return;
    }
    const std::size_t dataRow = m_current->IsGroup
                                    ? m_arrangement.Groups()[m_current->Position].First
                                    : *m_arrangement.DataRowOf(m_current->Position);
    SetCurrentRow(m_arrangement.RowOfGroup(*m_arrangement.ShownGroupOf(dataRow)));
}

// ---- order ----

/// A record stays current, a group does not: the groups are others now.
void Grid::ChangeOrder(std::vector<GridOrderKey>& keys, std::vector<GridOrderKey> changed) {
    keys = OfKnownColumns(std::move(changed), m_columns.size());
    const bool losesCurrent = m_current && m_current->IsGroup;
    if (losesCurrent) {
        m_current.reset();
    }
    Arrange();
    if (losesCurrent) {
        CurrentRowChanged.Raise();
    }
}

void Grid::SetGroups(std::vector<GridOrderKey> groups) {
    ChangeOrder(m_groups, std::move(groups));
}

void Grid::AddGroup(const GridOrderKey& group) {
    std::vector<GridOrderKey> groups = m_groups;
    groups.push_back(group);
    SetGroups(std::move(groups));
}

bool Grid::HasGroup(std::int32_t column) const {
    return std::any_of(m_groups.begin(), m_groups.end(), OnColumn(column));
}

void Grid::RemoveGroup(std::int32_t column) {
    std::vector<GridOrderKey> groups = m_groups;
    std::erase_if(groups, OnColumn(column));
    SetGroups(std::move(groups));
}

void Grid::SetSortKeys(std::vector<GridOrderKey> sortKeys) {
    ChangeOrder(m_sortKeys, std::move(sortKeys));
}

// ---- the user ----

void Grid::ChooseDataRow(std::size_t dataRow) {
    if (dataRow >= DataRowCount()) {
        return;
    }
    if (!m_arrangement.RowOfDataRow(dataRow)) {
        m_arrangement.Reveal(dataRow);
        Changed.Raise(GridChange::Rows, 0);
    }
    SetCurrentRow(m_arrangement.RowOfDataRow(dataRow));
}

void Grid::ChooseGroups(std::vector<GridOrderKey> groups) {
    SetGroups(std::move(groups));
    GroupsChosen.Raise();
}

void Grid::ChooseWidth(std::int32_t column, double width) {
    SetWidth(column, width);
    WidthChosen.Raise(column);
}

void Grid::Check(std::int32_t key, bool checked) {
    const std::optional<std::size_t> position = m_binding.PositionOf(key);
    if (!position) {
        return;
    }
    Guarded(Failed, [&] { m_binding.WriteCheck(key, checked); });
    const std::optional<std::size_t> dataRow = m_arrangement.DataRowOf(*position);
    if (const auto row = dataRow ? m_arrangement.RowOfDataRow(*dataRow) : std::nullopt) {
        Changed.Raise(GridChange::Row, *row);
    }
}

void Grid::DoubleClick(std::size_t row) {
    SetCurrentRow(row);
    if (KeyOfRow(row)) {
        DoubleClicked.Raise();
    }
}

}  // namespace dorvik
