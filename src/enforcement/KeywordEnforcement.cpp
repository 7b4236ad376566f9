#include "enforcement/KeywordEnforcement.h"

#include "base/modText.h"
#include "enforcement/RuleEngine.h"
#include "foundation/log/Trap.h"
#include "rulebase/model/Rulebase.h"
#include "rulebase/model/modRuleFacts.h"

namespace dorvik {

std::vector<KeywordEnforcement::KeywordTest>& KeywordEnforcement::KeywordsOf(ParserEvent event) {
    const auto number = static_cast<std::int32_t>(event);
    EventKeywords& keywords = m_keywords.at(static_cast<std::size_t>(number));
    if (!keywords.Prepared) {
        keywords.Tests.clear();  // what an attempt that failed left
        if (const auto* rules = m_rulebase.RuleLists().ParserEventUKList(number)) {
            for (std::int32_t index = 1; index <= rules->Count(); ++index) {
                const IRule& rule = *rules->Item(index);
                KeywordTest& test = keywords.Tests.emplace_back();
                test.Rule = &rule;
                test.RuleID = std::to_string(rule.RuleID());
                test.Expression.SetPattern(rule.Condition());
                test.Needs = test.Expression.Needs();
            }
        }
        keywords.Prepared = true;
    }
    return keywords.Tests;
}

void KeywordEnforcement::EnforceUnauthorisedKeywords(const EventPlace& place) {
    std::vector<KeywordTest>& keywords = KeywordsOf(place.Event);
    if (keywords.empty()) {
        return;
    }
    VB6ParserState& state = m_resultsManager.ParserState();
    const std::string_view statement = modText::TrimLeft(state.StrippedSourceStatement());
    const TextTraits traits(statement);
    const KeywordTest* current = nullptr;
    for (KeywordTest& keyword : keywords) {
        if (m_ruleEngine.IsSwitchedOff(keyword.Rule->RuleID())) {
            continue;
        }
        m_ruleEngine.IncrementRuleExecutionCount();
        current = &keyword;
        if (!keyword.Needs.MayMatch(statement, traits)) {
            continue;
        }
        state.SetCurrentRuleID(keyword.RuleID);
        if (IsMatch(keyword, statement, traits)) {
            Raise(*keyword.Rule, place);
        }
    }
    if (current != nullptr) {
        state.SetCurrentRuleID(current->RuleID);  // whatever is logged next names it
    }
}

bool KeywordEnforcement::IsMatch(
    KeywordTest& keyword, std::string_view statement, const TextTraits& traits) {
    bool isMatch = false;
    Explain(
        [&] { isMatch = keyword.Expression.Test(statement, traits); },
        [&] {
            if (keyword.Expression.IsMalformed()) {
                m_ruleEngine.CountPatternFailure(*keyword.Rule);
            } else {
                m_ruleEngine.CountPatternStop(*keyword.Rule);
            }
            return " in " + modRuleFacts::NameOf(*keyword.Rule);
        });
    return isMatch;
}

void KeywordEnforcement::Raise(const IRule& rule, const EventPlace& place) {
    if (place.Event == ParserEvent::EndProcedure) {
        m_resultsManager.RaiseEndEventViolation(
            rule.ViolationDefinition(), place.OriginOf(rule), place.Event);
    } else {
        m_resultsManager.RaiseViolation(rule.ViolationDefinition(), place.OriginOf(rule), "");
    }
}

}  // namespace dorvik
