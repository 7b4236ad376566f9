#include "enforcement/EventActions.h"

#include "CodingEnforcement.h"
#include "KeywordEnforcement.h"
#include "NamingEnforcement.h"
#include "criteria/ReviewCriteria.h"
#include "enforcement/AuthorisationEnforcement.h"
#include "enforcement/ResultsManager.h"
#include "enforcement/RuleEngine.h"
#include "parser/ParserEventTable.h"
#include "parser/ScopeName.h"
#include "results/ResultsDB.h"
#include "source/LineType.h"
#include "source/VirtualObject.h"

namespace dorvik {

std::string_view LocationMember(const VB6ParserState& state, Location location) {
    switch (location) {
        case Location::File: return "(Project)";
        case Location::Layout: return "(Layout)";
        case Location::Declarations: return "(Declarations)";
        case Location::Procedure:
        case Location::PropertyGet:
        case Location::PropertyLet:
        case Location::PropertySet: return state.CurrentProcedureName();
        case Location::Control: return state.CurrentControlName();
        case Location::None: return {};
    }
    return {};
}

EventActions::EventActions(
    const ReviewCriteria& criteria,
    Rulebase& rulebase,
    RuleEngine& ruleEngine,
    ResultsManager& resultsManager)
    : m_criteria(criteria),
      m_resultsManager(resultsManager),
      m_review{
          rulebase,
          ruleEngine,
          resultsManager.ParserState(),
          resultsManager.Log(),
          resultsManager.Violations()},
      m_authorisation(std::make_unique<AuthorisationEnforcement>(
          rulebase, m_review.State, m_review.Violations)),
      m_coding(std::make_unique<CodingEnforcement>(m_review)),
      m_keywords(std::make_unique<KeywordEnforcement>(m_review)) {}

EventActions::~EventActions() = default;

void EventActions::SetNamingHelper(NamingConventionHelper& helper) {
    m_naming = std::make_unique<NamingEnforcement>(m_review, helper);
}

void EventActions::Execute(ParserEvent event, bool parserActive) {
    const Location location = parserActive ? m_review.State.CurrentLocation() : Location::File;
    SetupResults(event);
    EnforceRules({event, location, LocationMember(m_review.State, location)});
    LogFinishedObjects(event);
}

void EventActions::EnforceRules(const EventLocation& location) {
    const RulebaseLoadCriteria& active = m_criteria.LoadCriteria();
    m_review.RuleEngine.BeginEvent();
    if (location.Event == ParserEvent::Component) {
        if (active.AuthorisedComponents()) {
            m_authorisation->EnforceAuthorisedComponents();
        }
    } else if (active.NamingConventions() && m_naming) {
        m_naming->EnforceNamingConventions(location);
    }
    if (active.CodingConventions()) {
        m_coding->EnforceCodingConventions(location);
    }
    if (RowOf(location.Event).Rules.TestsKeywords && active.UnauthorisedKeywords() &&
        m_review.State.CurrentLineType() != LineType::CommentOnly) {
        m_keywords->EnforceUnauthorisedKeywords(location);
    }
}

void EventActions::SetupResults(ParserEvent event) {
    const VB6ParserState& state = m_review.State;
    const auto setup = [&](std::string_view name) {
        if (const std::shared_ptr<VirtualObject> object = state.GetVirtualObject(name)) {
            m_resultsManager.ResultsDB().Writer().SetupVObjectResults(name, *object);
        }
    };
    if (event == ParserEvent::BeginProject) {
        setup(scopename::kProject);
        setup(scopename::kProjectFile);
    } else if (event == ParserEvent::BeginFile) {
        setup(scopename::kFile);
        setup(scopename::kDeclarations);
    } else if (event == ParserEvent::BeginProcedure) {
        setup(scopename::kProcedure);
    } else if (event == ParserEvent::Component || event == ParserEvent::BeginLayout) {
        // A file has one layout record, whether a component line or the layout itself comes first.
        const std::shared_ptr<VirtualObject> layout = state.GetVirtualObject(scopename::kLayout);
        if (layout && layout->ObjectID() == 0) {
            setup(scopename::kLayout);
        }
    }
}

void EventActions::LogFinishedObjects(ParserEvent event) {
    if (event == ParserEvent::EndLayout) {
        m_resultsManager.LogVirtualObjectResults(scopename::kLayout);
    } else if (event == ParserEvent::EndProcedure) {
        m_resultsManager.LogVirtualObjectResults(scopename::kProcedure);
    } else if (event == ParserEvent::EndProject) {
        m_resultsManager.LogVirtualObjectResults(scopename::kProject);
        m_resultsManager.LogVirtualObjectResults(scopename::kProjectFile);
    }
}

}  // namespace dorvik
