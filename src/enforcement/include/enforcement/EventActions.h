#pragma once

#include "enforcement/AuthorisationEnforcement.h"
#include "enforcement/CodingEnforcement.h"
#include "enforcement/KeywordEnforcement.h"
#include "enforcement/NamingEnforcement.h"
#include "parser/Location.h"
#include "parser/ParserEvent.h"

#include <optional>
#include <string_view>

namespace dorvik {

class ResultsManager;
class ReviewCriteria;
class RuleEngine;
class Rulebase;
class VB6ParserState;

/// What happens at a parser event: which object gets its results record, which kinds of rule run in
/// which order, and when a finished object goes to the results store. One per project review.
///
/// The order at one event is fixed: results records first, then the rules (naming or component
/// authorisation, coding conventions, unauthorised keywords), then the results of what has ended.
class EventActions {
public:
    /// REQUIRES: all four outlive this object.
    EventActions(
        const ReviewCriteria& criteria,
        Rulebase& rulebase,
        RuleEngine& ruleEngine,
        ResultsManager& resultsManager);

    /// Names are tested from now on. REQUIRES: the helper outlives this object.
    void SetNamingHelper(NamingConventionHelper& helper);

    /// Runs everything that belongs to the event, but for what needs the project review itself.
    /// `parserActive` is false at the events of the project. An error is raised to the caller.
    void Execute(ParserEvent event, bool parserActive);

    /// The lists of authorised references, for which the project review asks before event 26.
    AuthorisationEnforcement& Authorisation() { return m_authorisation; }

private:
    void SetupResults(ParserEvent event);
    void EnforceRules(const EventPlace& place);
    void LogFinishedObjects(ParserEvent event);

    const ReviewCriteria& m_criteria;
    Rulebase& m_rulebase;
    RuleEngine& m_ruleEngine;
    ResultsManager& m_resultsManager;
    AuthorisationEnforcement m_authorisation;
    std::optional<NamingEnforcement> m_naming;
    CodingEnforcement m_coding;
    KeywordEnforcement m_keywords;
};

/// The display name of the place where the parser stands: "(Project)", "(Layout)", a procedure name ...
std::string_view LocationMember(const VB6ParserState& state, Location location);

}  // namespace dorvik
