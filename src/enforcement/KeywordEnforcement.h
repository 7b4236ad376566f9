#pragma once

#include "enforcement/EventLocation.h"
#include "enforcement/ReviewContext.h"
#include "platform/regex/RegularExpression.h"

#include <array>
#include <string>
#include <string_view>
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
    /// A keyword rule, ready for the test.
    struct KeywordTest {
        const IRule* Rule;
        std::string RuleID;
        RegularExpression Expression;
        PatternNeeds Needs;  // a statement without them needs no test
    };
    struct EventKeywords {
        bool Prepared = false;
        std::vector<KeywordTest> Tests;
    };

    std::vector<KeywordTest>& KeywordsOf(ParserEvent event);
    bool IsMatch(KeywordTest& keyword, std::string_view statement, const TextTraits& traits);

    const ReviewContext m_review;
    std::array<EventKeywords, kLastParserEvent + 1> m_keywords;  // by event number
};

}  // namespace dorvik
