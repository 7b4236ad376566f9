#pragma once

#include "enforcement/ReviewContext.h"
#include "parser/ParserEvent.h"
#include "source/Location.h"

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
struct EventLocation;

/// The actions at a parser event: creates the results record of a new object, runs the rules, and stores the results
/// of a finished object. One per project review.
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

    /// From now on naming conventions are enforced. REQUIRES: the helper outlives this object.
    void SetNamingHelper(NamingConventionHelper& helper);

    /// Runs the actions of the event, except those that need the project review itself. `parserActive` is false
    /// at the events of the project. An error is raised to the caller.
    /// REQUIRES: the parser state has the event.
    void Execute(ParserEvent event, bool parserActive);

    /// The check of references, which the project review calls before event 26.
    AuthorisationEnforcement& Authorisation() { return *m_authorisation; }

private:
    void SetupResults(ParserEvent event);
    void EnforceRules(const EventLocation& location);
    void LogFinishedObjects(ParserEvent event);

    const ReviewCriteria& m_criteria;
    ResultsManager& m_resultsManager;
    const ReviewContext m_review;
    const std::unique_ptr<AuthorisationEnforcement> m_authorisation;
    std::unique_ptr<NamingEnforcement> m_naming;  // null unless names are tested
    const std::unique_ptr<CodingEnforcement> m_coding;
    const std::unique_ptr<KeywordEnforcement> m_keywords;
};

/// The display name of a location: "(Project)", "(Layout)", a procedure name ...
std::string_view LocationMember(const VB6ParserState& state, Location location);

}  // namespace dorvik
