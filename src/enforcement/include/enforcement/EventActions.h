#pragma once

#include "enforcement/ReviewContext.h"
#include "parser/Location.h"
#include "parser/ParserEvent.h"

#include <memory>
#include <string_view>

namespace dorvik {

class AuthorisationEnforcement;
class CodingEnforcement;
class KeywordEnforcement;
class NamingConventionHelper;
class NamingEnforcement;
class ResultsManager;
class ReviewCriteria;
struct EventPlace;

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
    ~EventActions();

    /// Names are tested from now on. REQUIRES: the helper outlives this object.
    void SetNamingHelper(NamingConventionHelper& helper);

    /// Runs everything that belongs to the event, but for what needs the project review itself.
    /// `parserActive` is false at the events of the project. An error is raised to the caller.
    /// REQUIRES: the parser state has the event.
    void Execute(ParserEvent event, bool parserActive);

    /// The lists of authorised references, for which the project review asks before event 26.
    AuthorisationEnforcement& Authorisation() { return *m_authorisation; }

private:
    void SetupResults(ParserEvent event);
    void EnforceRules(const EventPlace& place);
    void LogFinishedObjects(ParserEvent event);

    const ReviewCriteria& m_criteria;
    ResultsManager& m_resultsManager;
    const ReviewContext m_review;
    const std::unique_ptr<AuthorisationEnforcement> m_authorisation;
    std::unique_ptr<NamingEnforcement> m_naming;  // null unless names are tested
    const std::unique_ptr<CodingEnforcement> m_coding;
    const std::unique_ptr<KeywordEnforcement> m_keywords;
};

/// The display name of the place where the parser stands: "(Project)", "(Layout)", a procedure name ...
std::string_view LocationMember(const VB6ParserState& state, Location location);

}  // namespace dorvik
