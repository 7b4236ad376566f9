#include "enforcement/EventActions.h"

#include "base/modText.h"
#include "criteria/ReviewCriteria.h"
#include "enforcement/ResultsManager.h"
#include "enforcement/RuleEngine.h"
#include "parser/ScopeName.h"
#include "rulebase/IRule.h"
#include "rulebase/Rulebase.h"
#include "source/LineType.h"

#include <utility>

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
      m_resultsManager(resultsManager) {}

void EventActions::Execute(ParserEvent event, bool parserActive) {
    m_resultsManager.ParserState().SetParserEvent(event);
    SetupResults(event);
    if (IsKeywordEvent(event) && m_criteria.LoadCriteria().UnauthorisedKeywords() &&
        m_resultsManager.ParserState().CurrentLineType() != LineType::CommentOnly) {
        EnforceUnauthorisedKeywords(event, parserActive);
    }
    LogFinishedObjects(event);
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

std::vector<EventActions::KeywordTest>& EventActions::KeywordsOf(ParserEvent event) {
    const auto number = static_cast<std::int32_t>(event);
    EventKeywords& keywords = m_keywords.at(static_cast<std::size_t>(number));
    if (!keywords.Prepared) {
        keywords.Prepared = true;
        if (const auto* rules = std::as_const(m_rulebase).RuleLists().ParserEventUKList(number)) {
            for (std::int32_t index = 1; index <= rules->Count(); ++index) {
                const IRule& rule = *rules->Item(index);
                KeywordTest& test = keywords.Tests.emplace_back();
                test.Rule = &rule;
                test.RuleID = std::to_string(rule.RuleID());
                test.Expression.SetPattern(rule.Condition());
            }
        }
    }
    return keywords.Tests;
}

void EventActions::EnforceUnauthorisedKeywords(ParserEvent event, bool parserActive) {
    std::vector<KeywordTest>& keywords = KeywordsOf(event);
    if (keywords.empty()) {
        return;
    }
    VB6ParserState& state = m_resultsManager.ParserState();
    const std::string_view statement = modText::TrimLeft(state.StrippedSourceStatement());
    const ByteSet bytes(statement);
    for (KeywordTest& keyword : keywords) {
        state.SetCurrentRuleID(keyword.RuleID);
        m_ruleEngine.IncrementRuleExecutionCount();
        if (keyword.Expression.Test(statement, bytes)) {
            RaiseKeywordViolation(keyword, event, parserActive);
        }
    }
}

void EventActions::RaiseKeywordViolation(
    const KeywordTest& keyword, ParserEvent event, bool parserActive) {
    const VB6ParserState& state = m_resultsManager.ParserState();
    const Location location = parserActive ? state.CurrentLocation() : Location::File;
    const ResultsManager::Origin origin{
        location,
        keyword.Rule->RuleID(),
        keyword.Rule->RuleType(),
        LocationMember(state, location)};
    if (event == ParserEvent::EndProcedure) {
        m_resultsManager.RaiseEndEventViolation(keyword.Rule->ViolationDefinition(), origin, event);
    } else {
        m_resultsManager.RaiseViolation(keyword.Rule->ViolationDefinition(), origin, "");
    }
}

}  // namespace dorvik
