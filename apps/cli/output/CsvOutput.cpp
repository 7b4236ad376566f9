#include "cli/output/CsvOutput.h"

#include "cli/output/Console.h"
#include "cli/output/modTerminalText.h"

#include <algorithm>
#include <iterator>

namespace dorvik {

namespace {

/// A number with a sign is one, and no formula.
bool IsNumber(std::string_view value) {
    value.remove_prefix(value.starts_with('-') ? 1 : 0);
    const std::size_t digits = value.find_first_not_of("0123456789");
    const std::string_view rest = digits == value.npos ? "" : value.substr(digits);
    return digits != 0 && !value.empty() &&
           (rest.empty() || (rest.front() == '.' && rest.size() > 1 &&
                             rest.find_first_not_of("0123456789", 1) == rest.npos));
}

/// Spreadsheets take a cell that begins so for a formula, and run it; some skip blanks.
bool IsFormula(std::string_view value) {
    constexpr std::string_view kStarts[] = {
        "=",
        "+",
        "-",
        "@",
        "\t",
        "\r",
        "\xEF\xBC\x9D",
        "\xEF\xBC\x8B",
        "\xEF\xBC\x8D",
        "\xEF\xBC\xA0"};
    const std::size_t start = value.find_first_not_of(' ');
    const std::string_view seen = start == value.npos ? "" : value.substr(start);
    return std::any_of(
               std::begin(kStarts),
               std::end(kStarts),
               [&](std::string_view sign) { return seen.starts_with(sign); }) &&
           !IsNumber(value);
}

}  // namespace

void CsvOutput::AddLine(const std::vector<std::string>& values) {
    bool first = true;
    for (const std::string& value : values) {
        m_text += first ? "" : ",";
        first = false;
        AddValue(value);
    }
    // One empty value alone would be an empty line, which readers leave out.
    m_text += values.size() == 1 && values.front().empty() ? "\"\"\r\n" : "\r\n";
}

void CsvOutput::AddValue(std::string_view value) {
    const std::string harmless =
        (IsFormula(value) ? "'" : "") + modTerminalText::HarmlessLines(value, /*coloured=*/false);
    if (harmless.find_first_of(",\"\r\n") == std::string::npos) {
        m_text += harmless;
        return;
    }
    m_text += '"';
    for (const char character : harmless) {
        m_text.append(character == '"' ? 2 : 1, character);
    }
    m_text += '"';
}

void CsvOutput::Print() const {
    modConsole::PrintData(m_text);
}

}  // namespace dorvik
