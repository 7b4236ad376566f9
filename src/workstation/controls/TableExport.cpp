#include "workstation/controls/TableExport.h"

#include <algorithm>
#include <utility>

namespace dorvik {

namespace {

/// A cell of the clipboard cannot have a tab or more than one line.
std::string OnOneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\t' || c == '\r' || c == '\n'; }, ' ');
    return text;
}

std::string Quoted(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) {
        return text;
    }
    std::string quoted = "\"";
    for (const char c : text) {
        quoted.append(c == '"' ? 2 : 1, c);
    }
    return quoted + '"';
}

std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        switch (c) {
            case '&': escaped += "&amp;"; break;
            case '<': escaped += "&lt;"; break;
            case '>': escaped += "&gt;"; break;
            default: escaped += c;
        }
    }
    return escaped;
}

constexpr std::string_view kStyle =
    "<style>body{font-family:sans-serif}table{border-collapse:collapse}"
    "th,td{border:1px solid #c8cdd3;padding:.2em .6em;text-align:left;vertical-align:top}"
    "th{background:#ebedf0}</style>\n";

}  // namespace

TableExport::TableExport(ITableRows& rows, TableFormat format, std::string_view title, Sink sink)
    : m_rows(rows), m_format(format), m_sink(std::move(sink)) {
    Begin(title);
}

void TableExport::Begin(std::string_view title) {
    if (m_format == TableFormat::Text) {
        return;
    }
    if (m_format == TableFormat::Html) {
        const std::string text = Escaped(title);
        m_sink("<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>");
        m_sink(text);
        m_sink("</title>\n");
        m_sink(kStyle);
        m_sink("</head>\n<body>\n<h1>");
        m_sink(text);
        m_sink("</h1>\n<table>\n");
    }
    WriteRow(m_rows.Headings(), "th");
}

void TableExport::WriteRow(const std::vector<std::string>& cells, std::string_view htmlTag) {
    std::string line;
    for (std::size_t index = 0; index < cells.size(); ++index) {
        switch (m_format) {
            case TableFormat::Text:
                line.append(index == 0 ? "" : "\t").append(OnOneLine(cells[index]));
                break;
            case TableFormat::Csv:
                line.append(index == 0 ? "" : ",").append(Quoted(cells[index]));
                break;
            case TableFormat::Html:
                line.append("<").append(htmlTag).append(">");
                line.append(Escaped(cells[index])).append("</").append(htmlTag).append(">");
                break;
        }
    }
    switch (m_format) {
        case TableFormat::Text: line += '\n'; break;
        case TableFormat::Csv: line += "\r\n"; break;
        case TableFormat::Html: line = "<tr>" + line + "</tr>\n"; break;
    }
    m_sink(line);
}

bool TableExport::WriteNext(std::size_t rows) {
    const std::size_t end = m_written + std::min(rows, m_rows.Count() - m_written);
    for (; m_written < end; ++m_written) {
        WriteRow(m_rows.Cells(m_written), "td");
    }
    if (m_written < m_rows.Count()) {
        return true;
    }
    if (m_format == TableFormat::Html && !m_ended) {
        m_sink("</table>\n</body>\n</html>\n");
    }
    m_ended = true;
    return false;
}

}  // namespace dorvik
