#pragma once

#include "workstation/controls/Colour.h"
#include "workstation/controls/Event.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

enum class ColumnAlignment : std::int32_t { Left, Right };

struct ListColumn {
    std::string Text;
    ColumnAlignment Alignment = ColumnAlignment::Left;
    std::string SortIcon = {};  // "SortAscending", "SortDescending" or empty
    double Width = 0;           // part of the width of the table, 0 to 1

    friend bool operator==(const ListColumn&, const ListColumn&) = default;
};

struct ListCell {
    std::string Text;
    dorvik::Colour Colour = {};
    bool Bold = false;

    friend bool operator==(const ListCell&, const ListCell&) = default;
};

/// The first cell is the text of the row itself.
struct ListRow {
    std::string Key;
    std::string Icon;
    std::vector<ListCell> Cells;

    friend bool operator==(const ListRow&, const ListRow&) = default;
};

/// What a screen has to draw anew.
enum class ListChange : std::int32_t { Columns, Rows, RowAdded, Cell, Order, Selection };

/// A table of texts with headings, of which one row or none is selected. Columns and rows are numbered from 0, rows in
/// the order shown.
///
/// `Select` is what the program does; `Choose`, `ClickColumn` and `DoubleClick` are what the user does, and raise
/// the event of that name.
class ListTable {
public:
    const std::vector<ListColumn>& Columns() const { return m_columns; }
    void SetColumns(std::vector<ListColumn> columns);
    void SetColumnText(std::size_t column, std::string text);
    /// The icon of the order on that column, and none on the others.
    void ShowSortIcon(std::size_t column, bool ascending);
    void SetWidth(std::size_t column, double width);

    std::size_t Count() const { return m_order.size(); }
    const ListRow& Row(std::size_t row) const { return m_rows[m_order.at(row)]; }
    void Clear();
    void Add(ListRow row);
    void SetCell(std::size_t row, std::size_t column, ListCell cell);
    std::optional<std::size_t> Find(std::string_view key) const;

    /// By the text of a column, without regard to case. Equal rows stay in the order that is shown, in both directions; a
    /// row without that cell counts as an empty text.
    void Sort(std::size_t column, bool ascending);
    /// Back to the order in which the rows were added.
    void RestoreOrder();

    std::optional<std::size_t> SelectedIndex() const;
    const ListRow* SelectedRow() const;
    void Select(std::optional<std::size_t> row);

    void Choose(std::size_t row);
    void DoubleClick(std::size_t row);
    void ClickColumn(std::size_t column);

    Event<ListChange, std::size_t>
        Changed;  // with the row or column, 0 where it is about all of them
    Event<> SelectionChosen;
    Event<> DoubleClicked;
    Event<std::size_t> ColumnClicked;

private:
    std::vector<ListColumn> m_columns;
    std::vector<ListRow> m_rows;            // as they were added
    std::vector<std::size_t> m_order;       // positions in m_rows, as shown
    std::optional<std::size_t> m_selected;  // position in m_rows
};

}  // namespace dorvik
