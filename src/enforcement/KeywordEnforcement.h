#pragma once

#include "enforcement/EventLocation.h"
#include "enforcement/ReviewContext.h"
#include "platform/regex/PatternSet.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace dorvik {

/// Tests statements for unauthorised keywords. A keyword is a regular expression and, unlike all other
/// text in the system, is compared with case.
class KeywordEnforcement {
public:
    explicit KeywordEnforcement(const ReviewContext& review) : m_review(review) {}

    /// Tests all keywords assigned to the event against the current statement. A malformed pattern
    /// raises its error and ends the list; so does one that takes too long, which the rule engine counts.
    void EnforceUnauthorisedKeywords(const EventLocation& location);

private:
    struct Keyword {
        const IRule* Rule;
        std::int32_t RuleID;
        std::string RuleIDText;
        std::size_t Pattern;  // in the set
    };
    /// The keywords that are assigned to an event.
    struct EventKeywords {
        bool Prepared = false;
        std::vector<Keyword> Keywords;
        PatternSet Patterns;
    };

    EventKeywords& KeywordsOf(ParserEvent event);
    /// Counts a pattern that failed; which keyword it was, for the message.
    std::string NoteFailure(const Keyword& keyword, const PatternSet& patterns);

    const ReviewContext m_review;
    std::array<EventKeywords, kLastParserEvent + 1> m_keywords;  // by event number
};

}  // namespace dorvik
