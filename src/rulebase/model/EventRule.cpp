#include "rulebase/model/EventRule.h"

#include "base/BasicError.h"
#include "foundation/log/Trap.h"

#include <algorithm>

namespace dorvik {

std::int32_t EventRule::ParserEventID(std::int32_t index) const {
    if (index < 0 || index >= EventCount()) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
    }
    return m_events[static_cast<std::size_t>(index)];
}

std::string EventRule::ParserEventList() const {
    std::string list;
    for (const std::int32_t event : m_events) {
        if (!list.empty()) {
            list += '|';
        }
        list += std::to_string(event);
    }
    return list;
}

bool EventRule::AddParserEventID(std::int32_t eventID) {
    return Trap({ModuleName(), "AddParserEventID"}, [&] {
        if (!IsAssignedToEvent(eventID)) {
            m_events.push_back(eventID);
            Remember(eventID);
            MarkDirty();
        }
    });
}

bool EventRule::RemoveParserEventID(std::int32_t eventID) {
    MarkDirty();
    m_known.clear();
    if (eventID == -1) {
        m_events.clear();
        return true;
    }
    const auto place = std::find(m_events.begin(), m_events.end(), eventID);
    if (place != m_events.end()) {
        // Required: a swap with the last event, not a shift.
        *place = m_events.back();
        m_events.pop_back();
    }
    return true;
}

bool EventRule::IsAssignedToEvent(std::int32_t eventID) const {
    if (!m_known.empty()) {
        return m_known.contains(eventID);
    }
    return std::find(m_events.begin(), m_events.end(), eventID) != m_events.end();
}

void EventRule::Remember(std::int32_t eventID) {
    constexpr std::size_t kMany = 64;
    if (!m_known.empty()) {
        m_known.insert(eventID);
    } else if (m_events.size() > kMany) {
        m_known.insert(m_events.begin(), m_events.end());
    }
}

void EventRule::CopyEvents(const EventRule& other) {
    for (const std::int32_t event : other.m_events) {
        AddParserEventID(event);
    }
}

}  // namespace dorvik
