#include "cli/output/TablePrinter.h"

#include "base/modUtf8.h"
#include "cli/output/Console.h"

#include <algorithm>
#include <numeric>

namespace dorvik {

namespace {

constexpr std::size_t kGap = 2;
constexpr std::size_t kNarrowest = 8;  // of a column that wraps; below that no one can read it

std::size_t WidestLine(std::string_view text) {
    std::size_t widest = 0;
    for (const std::string& line : modTerminalText::Wrap(text, std::string_view::npos)) {
        widest = std::max(widest, modUtf8::Length(line));
    }
    return widest;
}

}  // namespace

TablePrinter::TablePrinter(std::vector<TableColumn> columns) : m_columns(std::move(columns)) {}

void TablePrinter::AddRow(std::vector<TableCell> cells) {
    cells.resize(m_columns.size(), TableCell(""));
    m_rows.push_back(std::move(cells));
}

bool TablePrinter::HasHead() const {
    return std::any_of(m_columns.begin(), m_columns.end(), [](const TableColumn& column) {
        return !column.Title.empty();
    });
}

std::vector<std::size_t> TablePrinter::Widths(std::size_t width) const {
    std::vector<std::size_t> widths;
    for (std::size_t column = 0; column < m_columns.size(); ++column) {
        std::size_t widest = modUtf8::Length(m_columns[column].Title);
        for (const auto& row : m_rows) {
            widest = std::max(widest, WidestLine(row[column].Text));
        }
        widths.push_back(widest);
    }
    const std::size_t gaps = m_indent + kGap * (std::max<std::size_t>(widths.size(), 1) - 1);
    const auto total = [&] {
        return std::accumulate(widths.begin(), widths.end(), gaps);
    };
    // The widest of those that wrap gives way, character by character, until the line fits.
    while (total() > width) {
        std::size_t* widest = nullptr;
        for (std::size_t column = 0; column < widths.size(); ++column) {
            if (m_columns[column].Wraps && widths[column] > kNarrowest &&
                (widest == nullptr || widths[column] > *widest)) {
                widest = &widths[column];
            }
        }
        if (widest == nullptr) {
            break;
        }
        // A single step would take long for a text of thousands of characters.
        *widest -= std::min(*widest - kNarrowest, std::max<std::size_t>((total() - width) / 8, 1));
    }
    return widths;
}

void TablePrinter::AppendRow(
    std::string& text,
    const std::vector<TableCell>& cells,
    const std::vector<std::size_t>& widths,
    bool coloured) const {
    std::vector<std::vector<std::string>> lines;
    std::size_t height = 0;
    for (std::size_t column = 0; column < cells.size(); ++column) {
        // A column that does not wrap still breaks at the line ends of its text.
        lines.push_back(modTerminalText::Wrap(cells[column].Text, widths[column]));
        height = std::max(height, lines.back().size());
    }
    for (std::size_t number = 0; number < height; ++number) {
        std::string line(m_indent, ' ');
        std::size_t blanks = 0;  // owed before the next text, so that no line ends in blanks
        for (std::size_t column = 0; column < cells.size(); ++column) {
            const std::string_view part =
                number < lines[column].size() ? std::string_view(lines[column][number]) : "";
            const std::size_t missing =
                widths[column] - std::min(widths[column], modUtf8::Length(part));
            const bool right = m_columns[column].AlignRight;
            blanks += right ? missing : 0;
            if (!part.empty()) {
                line.append(blanks, ' ');
                line += modTerminalText::Shaded(part, cells[column].Shade, coloured);
                blanks = 0;
            }
            blanks += (right ? 0 : missing) + kGap;
        }
        line.erase(line.find_last_not_of(' ') + 1);
        text += line + "\n";
    }
}

std::string TablePrinter::Text(std::size_t width, bool coloured) const {
    const std::vector<std::size_t> widths = Widths(width);
    std::string text;
    if (HasHead()) {
        std::vector<TableCell> head;
        for (const TableColumn& column : m_columns) {
            head.emplace_back(column.Title, Shade::Heading);
        }
        AppendRow(text, head, widths, coloured);
    }
    for (const auto& row : m_rows) {
        AppendRow(text, row, widths, coloured);
    }
    return text;
}

void TablePrinter::Print() const {
    modConsole::Print(Text(modConsole::OutputWidth(), modConsole::OutputIsColoured()));
}

}  // namespace dorvik
