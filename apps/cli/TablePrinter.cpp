#include "cli/TablePrinter.h"

#include "base/modUtf8.h"
#include "cli/Console.h"

#include <algorithm>
#include <numeric>

namespace dorvik {

namespace {

constexpr std::size_t kGap = 2;
constexpr std::size_t kNarrowest = 8;  // of a column that wraps; below that nobody can read it

struct ShadeRow {
    Shade Of;
    std::string_view Start;
};

constexpr ShadeRow kShades[] = {
    {Shade::Heading, "\x1b[1m"},
    {Shade::Dim, "\x1b[2m"},
    {Shade::Good, "\x1b[32m"},
    {Shade::Caution, "\x1b[33m"},
    {Shade::Bad, "\x1b[31m"},
};
constexpr std::string_view kShadeEnd = "\x1b[0m";

constexpr char32_t kDelete = 0x7F;
constexpr char32_t kLastControl = 0x9F;

bool SteersTerminal(const modUtf8::Character& character) {
    return !character.Valid || character.CodePoint < U' ' ||
           (character.CodePoint >= kDelete && character.CodePoint <= kLastControl);
}

/// Where to cut a word that fills the line: behind the last sign that joins names, else at the end.
std::size_t PlaceInWord(std::string_view head, std::size_t start) {
    const std::size_t sign = head.find_last_of("._:/\\");
    return sign == std::string_view::npos || sign <= start ? head.size() : sign + 1;
}

/// One line of text, without line ends, in lines of `width`.
void WrapLine(std::string_view line, std::size_t width, std::vector<std::string>& lines) {
    while (modUtf8::Length(line) > width) {
        const std::string_view head = modUtf8::Left(line, width);
        // A blank right behind the head is as good a place as one in it.
        std::size_t cut = line.at(head.size()) == ' ' ? head.size() : head.rfind(' ');
        const std::size_t indent = head.find_first_not_of(' ');
        if (cut == std::string_view::npos || indent >= cut) {
            cut = PlaceInWord(head, indent);
        }
        lines.emplace_back(line.substr(0, cut));
        lines.back().erase(lines.back().find_last_not_of(' ') + 1);
        line.remove_prefix(cut);
        line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
        if (line.empty()) {
            return;
        }
    }
    lines.emplace_back(line);
}

std::size_t WidestLine(std::string_view text) {
    std::size_t widest = 0;
    for (const std::string& line : modTerminalText::Wrap(text, std::string_view::npos)) {
        widest = std::max(widest, modUtf8::Length(line));
    }
    return widest;
}

}  // namespace

namespace modTerminalText {

std::string Harmless(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const modUtf8::Character character = modUtf8::Decode(text, position);
        if (!character.Valid) {
            modUtf8::Append(result, character.CodePoint);
        } else if (SteersTerminal(character)) {
            result += ' ';
        } else {
            result += text.substr(position, character.Size);
        }
        position += character.Size;
    }
    return result;
}

std::vector<std::string> Wrap(std::string_view text, std::size_t width) {
    std::vector<std::string> lines;
    while (true) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        if (!line.empty() && line.back() == '\r') {
            line.remove_suffix(1);
        }
        WrapLine(Harmless(line), std::max<std::size_t>(width, 1), lines);
        if (end == std::string_view::npos) {
            return lines;
        }
        text.remove_prefix(end + 1);
    }
}

std::string Shaded(std::string_view text, Shade shade, bool coloured) {
    if (coloured && !text.empty()) {
        for (const ShadeRow& row : kShades) {
            if (row.Of == shade) {
                return std::string(row.Start).append(text).append(kShadeEnd);
            }
        }
    }
    return std::string(text);
}

}  // namespace modTerminalText

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
