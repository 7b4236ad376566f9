#pragma once

#include "parser/IFileParserEvents.h"
#include "parser/VB6ParserState.h"

#include <functional>
#include <string>
#include <vector>

namespace dorvik {

/// Keeps every event that arrives, with the objects in scope at that moment.
class RecordingParserEvents : public IFileParserEvents {
public:
    struct Record {
        dorvik::ParserEvent Event;
        std::vector<std::string> Scope;
    };

    explicit RecordingParserEvents(const VB6ParserState& state) : m_state(state) {}

    void ParserEvent(dorvik::ParserEvent event) override;

    const std::vector<Record>& Records() const { return m_records; }
    /// The numbers of the events, with a blank between: "3 9 4 10".
    std::string Numbers() const;
    int Count(dorvik::ParserEvent event) const;
    void Clear() { m_records.clear(); }
    /// Called at each event, after it was recorded.
    void SetHandler(std::function<void(dorvik::ParserEvent)> handler);

private:
    const VB6ParserState& m_state;
    std::vector<Record> m_records;
    std::function<void(dorvik::ParserEvent)> m_handler;
};

}  // namespace dorvik
