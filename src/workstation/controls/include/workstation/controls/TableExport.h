#pragma once

#include "workstation/controls/ITableRows.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

namespace dorvik {

enum class TableFormat : std::int32_t {
    Text,  // tabs between cells, a line feed after each row; for the clipboard
    Csv,   // as RFC 4180 has it, with a line of headings
    Html,  // a page of its own
};

/// Writes a table as UTF-8, some rows at a time, so that its caller can do other things meanwhile.
class TableExport {
public:
    using Sink = std::function<void(std::string_view)>;

    /// `title` is that of a page. REQUIRES: `rows` outlives this.
    TableExport(ITableRows& rows, TableFormat format, std::string_view title, Sink sink);

    /// Up to that many more rows. False once all is written.
    bool WriteNext(std::size_t rows);
    std::size_t Written() const { return m_written; }

private:
    void Begin(std::string_view title);
    void WriteRow(const std::vector<std::string>& cells, std::string_view htmlTag);

    ITableRows& m_rows;
    TableFormat m_format;
    Sink m_sink;
    std::size_t m_written = 0;
    bool m_ended = false;
};

}  // namespace dorvik
