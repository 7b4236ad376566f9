#pragma once

#include "parser/Location.h"
#include "parser/ParserEvent.h"
#include "platform/RegularExpression.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class IRule;
class ResultsManager;
class ReviewCriteria;
class RuleEngine;
class Rulebase;
class VB6ParserState;
class ViolationDefinition;

/// What happens at a parser event: which object gets its results record, which kinds of rule run in
/// which order, and when a finished object goes to the results store. One per project review.
///
/// The order at one event is fixed: results records first, then the rules (naming or component
/// authorisation, coding conventions, unauthorised keywords), then the results of what has ended.
/// At present unauthorised keywords are the kind of rule that acts.
class EventActions {
public:
    /// REQUIRES: all four outlive this object.
    EventActions(
        const ReviewCriteria& criteria,
        Rulebase& rulebase,
        RuleEngine& ruleEngine,
        ResultsManager& resultsManager);

    /// Runs everything that belongs to the event, but for what needs the project review itself:
    /// see `FinishEvent`. An error is raised to the caller.
    void Execute(ParserEvent event, bool parserActive);

    /// Tests the unauthorised keywords assigned to the event against the current statement.
    /// A malformed pattern raises its error and ends the list.
    void EnforceUnauthorisedKeywords(ParserEvent event, bool parserActive);

private:
    /// A keyword rule, ready for the test.
    struct KeywordTest {
        const IRule* Rule;
        std::string RuleID;
        RegularExpression Expression;
    };
    struct EventKeywords {
        bool Prepared = false;
        std::vector<KeywordTest> Tests;
    };

    void SetupResults(ParserEvent event);
    void LogFinishedObjects(ParserEvent event);
    std::vector<KeywordTest>& KeywordsOf(ParserEvent event);
    void RaiseKeywordViolation(const KeywordTest& keyword, ParserEvent event, bool parserActive);

    const ReviewCriteria& m_criteria;
    Rulebase& m_rulebase;
    RuleEngine& m_ruleEngine;
    ResultsManager& m_resultsManager;
    std::array<EventKeywords, kLastParserEvent + 1> m_keywords;  // by event number
};

/// The display name of the place where the parser stands: "(Project)", "(Layout)", a procedure name ...
std::string_view LocationMember(const VB6ParserState& state, Location location);

}  // namespace dorvik
