#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// The one way to print a result as comma-separated values, as RFC 4180 has them: lines end in CR LF, a
/// value with a comma, a quote or a line end is quoted, a quote inside is doubled. UTF-8.
/// The first line that is added is the header.
///
/// No value runs in a spreadsheet: a text that begins like a formula gets a `'` in front, which spreadsheets do
/// not show; a negative number stays one. Control characters other than line ends and tabs are made visible, as
/// in every output.
class CsvOutput {
public:
    void AddLine(const std::vector<std::string>& values);

    const std::string& Result() const { return m_text; }
    /// To standard output.
    void Print() const;

private:
    void AddValue(std::string_view value);

    std::string m_text;
};

}  // namespace dorvik
