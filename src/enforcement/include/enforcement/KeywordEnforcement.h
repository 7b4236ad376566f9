#pragma once

#include "enforcement/EventPlace.h"
#include "platform/regex/RegularExpression.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class IRule;
class RuleEngine;
class Rulebase;

/// Tests statements for unauthorised keywords. A keyword is a regular expression and, unlike all other
/// text in the system, is compared with case.
class KeywordEnforcement {
public:
    /// REQUIRES: all three outlive this object.
    KeywordEnforcement(
        const Rulebase& rulebase, RuleEngine& ruleEngine, ResultsManager& resultsManager)
        : m_rulebase(rulebase), m_ruleEngine(ruleEngine), m_resultsManager(resultsManager) {}

    /// Tests all keywords assigned to the event against the current statement. A malformed pattern
    /// raises its error and ends the list; so does one that takes too long, which the rule engine counts.
    void EnforceUnauthorisedKeywords(const EventPlace& place);

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
    void Raise(const IRule& rule, const EventPlace& place);

    const Rulebase& m_rulebase;
    RuleEngine& m_ruleEngine;
    ResultsManager& m_resultsManager;
    std::array<EventKeywords, kLastParserEvent + 1> m_keywords;  // by event number
};

}  // namespace dorvik
