#include "parser/RecordingParserEvents.h"

#include <algorithm>

namespace dorvik {

void RecordingParserEvents::ParserEvent(dorvik::ParserEvent event) {
    m_records.push_back({event, m_state.ScopeNames()});
    if (m_handler) {
        m_handler(event);
    }
}

std::string RecordingParserEvents::Numbers() const {
    std::string numbers;
    for (const Record& record : m_records) {
        numbers += (numbers.empty() ? "" : " ") + std::to_string(static_cast<int>(record.Event));
    }
    return numbers;
}

int RecordingParserEvents::Count(dorvik::ParserEvent event) const {
    return static_cast<int>(std::count_if(
        m_records.begin(), m_records.end(), [&](const Record& r) { return r.Event == event; }));
}

void RecordingParserEvents::SetHandler(std::function<void(dorvik::ParserEvent)> handler) {
    m_handler = std::move(handler);
}

}  // namespace dorvik
