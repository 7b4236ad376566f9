#pragma once

#include "rulebase/model/BasicRule.h"

#include <string_view>
#include <unordered_set>
#include <vector>

namespace dorvik {

/// A rule that is tried at the parser events assigned to it.
class EventRule : public BasicRule {
public:
    std::int32_t EventCount() const { return static_cast<std::int32_t>(m_events.size()); }
    /// The event at a 0-based place. Raises `kSubscriptOutOfRange` outside the list.
    std::int32_t ParserEventID(std::int32_t index) const;
    const std::vector<std::int32_t>& ParserEvents() const { return m_events; }
    /// The events in list order, joined with "|"; empty when there are none.
    std::string ParserEventList() const;
    /// True once the event is in the list, newly added or not.
    bool AddParserEventID(std::int32_t eventID);
    /// -1 removes all events. The last event takes the place of the removed one. Always true, and
    /// always sets `Dirty`, also when the event was not there.
    bool RemoveParserEventID(std::int32_t eventID);
    bool IsAssignedToEvent(std::int32_t eventID) const;

protected:
    /// The class name under which failures are logged.
    virtual std::string_view ModuleName() const = 0;
    void CopyEvents(const EventRule& other);

private:
    void Remember(std::int32_t eventID);

    std::vector<std::int32_t> m_events;
    std::unordered_set<std::int32_t> m_known;  // the same, once they are too many for a scan
};

}  // namespace dorvik
