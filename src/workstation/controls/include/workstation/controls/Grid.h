#pragma once

#include "workstation/controls/Event.h"
#include "workstation/controls/GridArrangement.h"
#include "workstation/controls/GridBinding.h"
#include "workstation/controls/GridColumn.h"
#include "workstation/controls/IGridRecords.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace dorvik {

/// What a screen has to draw anew.
enum class GridChange : std::int32_t {
    Column,    // heading, width or value list of the column with that number
    Rows,      // all rows, with order and groups
    RowsFrom,  // the row with that number and all below it
    Row,       // the row with that number
    Current,   // which row is current; the number is that of the row, of no meaning where none is
};

/// A group row as it is shown.
struct GridGroupRow {
    std::int32_t Column = 0;
    std::int32_t Level = 0;  // from 1, the outermost
    std::size_t Count = 0;   // data rows
    bool Expanded = false;
};

/// A table of records, which may be many, in rows that can be sorted and grouped.
///
/// The grid holds the keys of the records and their order, eight bytes a record. Values are read when a row is
/// shown, and those of one column together when rows are sorted or grouped by it. Records are those that the record source had
/// at the last `Rebind`; without a sort key they are in the order of their keys. Texts are sorted and grouped without regard
/// to case, and rows that compare equal keep the order that they had.
///
/// Columns are numbered from 1, rows from 0 in the order shown, group rows among them. Of the rows one or none is current.
/// `Choose...`, `Check` and `DoubleClick` are what the user does, as is `SetCurrentRow`, which is the program's too.
///
/// What fails is reported by `Failed`, and nothing is raised: the grid has no rows then, or keeps their order, or the
/// value is empty.
class Grid {
public:
    /// Gives the text of a group row, from the text of its value ("(none)" for an empty one).
    using GroupTextRule = std::function<std::string(const GridGroupRow& group, std::string text)>;

    explicit Grid(std::vector<GridColumn> columns);

    // ---- columns ----

    const std::vector<GridColumn>& Columns() const { return m_columns; }
    const GridColumn& Column(std::int32_t column) const;
    /// By the key, without regard to case.
    std::optional<std::int32_t> FindColumn(std::string_view key) const;
    void SetWidth(std::int32_t column, double width);
    const GridValueList& ValueList(std::int32_t column) const;
    /// Rows that are sorted or grouped by the column stay where they are until the next `Rebind`.
    void SetValueList(std::int32_t column, GridValueList list);

    // ---- records ----

    /// Null for none. The grid has no rows until `Rebind`. REQUIRES: `records` outlives the binding.
    void Bind(IGridRecords* records);
    const std::string& RecordSource() const { return m_binding.RecordSource(); }
    void SetRecordSource(std::string recordSource) {
        m_binding.SetRecordSource(std::move(recordSource));
    }
    /// Reads the keys anew. No row is current then. With other groups, if they are given.
    void Rebind(std::optional<std::vector<GridOrderKey>> groups = std::nullopt);

    // ---- rows ----

    std::size_t RowCount() const { return m_arrangement.RowCount(); }
    std::size_t DataRowCount() const { return m_arrangement.DataRowCount(); }
    /// Nothing for a data row.
    std::optional<GridGroupRow> GroupRow(std::size_t row) const;
    std::string GroupText(std::size_t row);
    void SetGroupTextRule(GroupTextRule rule) { m_groupTextRule = std::move(rule); }
    /// Nothing for a group row.
    std::optional<std::int32_t> KeyOfRow(std::size_t row) const;
    /// A data row by its number among all data rows, whether it shows or not.
    std::int32_t KeyOfDataRow(std::size_t dataRow) const;
    Variant Value(std::int32_t key, std::int32_t column);
    /// The value as it is shown.
    GridValue Shown(std::int32_t key, std::int32_t column);
    void SetExpanded(std::size_t row, bool expanded);
    void ExpandAll(bool expanded);

    // ---- the current row ----

    std::optional<std::size_t> CurrentRow() const;
    /// Nothing for none, and for a group row.
    std::optional<std::int32_t> CurrentKey() const;
    void SetCurrentRow(std::optional<std::size_t> row);

    // ---- order ----

    const std::vector<GridOrderKey>& Groups() const { return m_groups; }
    void SetGroups(std::vector<GridOrderKey> groups);
    /// Adds the innermost group.
    void AddGroup(const GridOrderKey& group);
    bool HasGroup(std::int32_t column) const;
    void RemoveGroup(std::int32_t column);
    const std::vector<GridOrderKey>& SortKeys() const { return m_sortKeys; }
    void SetSortKeys(std::vector<GridOrderKey> sortKeys);

    // ---- the user ----

    /// The data row with that number, from 0; groups that hide it are expanded.
    void ChooseDataRow(std::size_t dataRow);
    void ChooseGroups(std::vector<GridOrderKey> groups);
    void ChooseWidth(std::int32_t column, double width);
    /// Sets or clears the check mark of a record and stores it. No row moves by that.
    void Check(std::int32_t key, bool checked);
    void DoubleClick(std::size_t row);

    Event<GridChange, std::size_t> Changed;
    Event<> CurrentRowChanged;        // also where none is current after it
    Event<> GroupsChosen;             // after the user changed the groups
    Event<std::int32_t> WidthChosen;  // the column
    Event<> DoubleClicked;            // on a data row, which is current
    Event<> PopupRequested;
    Event<std::int32_t> Failed;  // the number of the error

private:
    /// What is current: a group or a record, by their positions.
    struct Current {
        bool IsGroup = false;
        std::size_t Position = 0;
    };

    void Arrange();
    void ChangeOrder(std::vector<GridOrderKey>& keys, std::vector<GridOrderKey> changed);
    void KeepCurrentShown();

    std::vector<GridColumn> m_columns;
    std::vector<GridValueList> m_valueLists;
    GridBinding m_binding;
    GridArrangement m_arrangement;
    std::vector<GridOrderKey> m_groups;
    std::vector<GridOrderKey> m_sortKeys;
    GroupTextRule m_groupTextRule;
    std::optional<Current> m_current;
};

}  // namespace dorvik
