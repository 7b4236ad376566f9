#pragma once

#include "cli/output/modTerminalText.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// One cell. Its text may hold line ends.
struct TableCell {
    TableCell(std::string text, Shade shade = Shade::Plain)  // NOLINT: a text is a cell
        : Text(std::move(text)), Shade(shade) {}
    TableCell(std::string_view text) : Text(text) {}  // NOLINT
    TableCell(const char* text) : Text(text) {}       // NOLINT
    TableCell(std::int32_t number)                    // NOLINT
        : Text(std::to_string(number)) {}

    std::string Text;
    dorvik::Shade Shade = dorvik::Shade::Plain;
};

/// One column. Where a table is too wide, the columns that may wrap share what the others leave.
struct TableColumn {
    std::string Title;  // a table whose titles are all empty has no head
    bool AlignRight = false;
    bool Wraps = false;
};

/// The one way to print a table: columns as wide as their texts, two blanks between them, no rules,
/// long texts wrapped at blanks within their column, so that no line is wider than the terminal.
///
/// Widths count characters, those of `modTerminalText::Harmless`: no text out of a file can steer the
/// terminal.
class TablePrinter {
public:
    explicit TablePrinter(std::vector<TableColumn> columns);

    /// Missing cells at the end are empty.
    void AddRow(std::vector<TableCell> cells);
    std::size_t RowCount() const { return m_rows.size(); }
    /// Columns of blanks before every line.
    void SetIndent(std::size_t indent) { m_indent = indent; }

    /// The lines, each with its line feed; none is wider than `width` unless a column that does not
    /// wrap needs it.
    std::string Text(std::size_t width, bool coloured) const;
    /// To standard output, as wide and coloured as that is.
    void Print() const;

private:
    std::vector<std::size_t> Widths(std::size_t width) const;
    bool HasHead() const;
    void AppendRow(
        std::string& text,
        const std::vector<TableCell>& cells,
        const std::vector<std::size_t>& widths,
        bool coloured) const;

    std::vector<TableColumn> m_columns;
    std::vector<std::vector<TableCell>> m_rows;
    std::size_t m_indent = 0;
};

}  // namespace dorvik
