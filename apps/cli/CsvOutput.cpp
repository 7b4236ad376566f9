#include "cli/CsvOutput.h"

#include "cli/Console.h"

namespace dorvik {

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
    if (value.find_first_of(",\"\r\n") == std::string_view::npos) {
        m_text += value;
        return;
    }
    m_text += '"';
    for (const char character : value) {
        m_text.append(character == '"' ? 2 : 1, character);
    }
    m_text += '"';
}

void CsvOutput::Print() const {
    modConsole::Print(m_text);
}

}  // namespace dorvik
