#include "enforcement/EventActions.h"

#include "criteria/ReviewCriteria.h"
#include "enforcement/ResultsManager.h"
#include "enforcement/RuleEngine.h"
#include "parser/ScopeName.h"
#include "rulebase/model/Rulebase.h"
#include "source/LineType.h"

namespace dorvik {

namespace {

/// The events at which keywords run, whatever events a keyword is assigned to in the rulebase.
bool IsKeywordEvent(ParserEvent event) {
    return event == ParserEvent::Declaration || event == ParserEvent::BeginProcedure ||
           event == ParserEvent::ProcedureBody;
}

}  // namespace

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
      m_rulebase(rulebase),
      m_ruleEngine(ruleEngine),
      m_resultsManager(resultsManager),
      m_authorisation(rulebase, resultsManager),
      m_coding(rulebase, ruleEngine, resultsManager),
      m_keywords(rulebase, ruleEngine, resultsManager) {}

void EventActions::SetNamingHelper(NamingConventionHelper& helper) {
    m_naming.emplace(m_rulebase, m_ruleEngine, m_resultsManager, helper);
}

void EventActions::Execute(ParserEvent event, bool parserActive) {
    VB6ParserState& state = m_resultsManager.ParserState();
    state.SetParserEvent(event);
    const Location location = parserActive ? state.CurrentLocation() : Location::File;
    const EventPlace place{event, location, LocationMember(state, location)};
    SetupResults(event);
    EnforceRules(place);
    LogFinishedObjects(event);
}

void EventActions::EnforceRules(const EventPlace& place) {
    const RulebaseLoadCriteria& active = m_criteria.LoadCriteria();
    m_ruleEngine.BeginEvent();
    if (place.Event == ParserEvent::Component) {
        if (active.AuthorisedComponents()) {
            m_authorisation.EnforceAuthorisedComponents();
        }
    } else if (active.NamingConventions() && m_naming) {
        m_naming->EnforceNamingConventions(place);
    }
    if (active.CodingConventions()) {
        m_coding.EnforceCodingConventions(place);
    }
    if (IsKeywordEvent(place.Event) && active.UnauthorisedKeywords() &&
        m_resultsManager.ParserState().CurrentLineType() != LineType::CommentOnly) {
        m_keywords.EnforceUnauthorisedKeywords(place);
    }
}

void EventActions::SetupResults(ParserEvent event) {
    VB6ParserState& state = m_resultsManager.ParserState();
    const auto setup = [&](std::string_view name) {
        if (const std::shared_ptr<VirtualObject> object = state.GetVirtualObject(name)) {
            m_resultsManager.ResultsDB().SetupVObjectResults(name, *object);
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
