#include "KeywordEnforcement.h"

#include "base/modText.h"
#include "enforcement/RuleEngine.h"
#include "enforcement/ViolationLog.h"
#include "foundation/log/Trap.h"
#include "parser/VB6ParserState.h"
#include "rulebase/model/Rulebase.h"
#include "rulebase/model/modRuleFacts.h"

#include <utility>

namespace dorvik {

std::vector<KeywordEnforcement::KeywordTest>& KeywordEnforcement::KeywordsOf(ParserEvent event) {
    const auto number = static_cast<std::int32_t>(event);
    EventKeywords& keywords = m_keywords.at(static_cast<std::size_t>(number));
    if (!keywords.Prepared) {
        keywords.Tests.clear();  // left from an attempt that failed
        const RuleLists& lists = std::as_const(m_review.Rulebase).RuleLists();
        if (const auto* rules = lists.ParserEventUKList(number)) {
            for (const auto& rule : *rules) {
                KeywordTest& test = keywords.Tests.emplace_back();
                test.Rule = rule.get();
                test.RuleID = std::to_string(rule->RuleID());
                test.Expression.SetPattern(rule->Condition());
                test.Needs = test.Expression.Needs();
            }
        }
        keywords.Prepared = true;
    }
    return keywords.Tests;
}

void KeywordEnforcement::EnforceUnauthorisedKeywords(const EventLocation& location) {
    std::vector<KeywordTest>& keywords = KeywordsOf(location.Event);
    if (keywords.empty()) {
        return;
    }
    VB6ParserState& state = m_review.State;
    const std::string_view statement = modText::TrimLeft(state.StrippedSourceStatement());
    const TextTraits traits(statement);
    const KeywordTest* current = nullptr;
    for (KeywordTest& keyword : keywords) {
        if (m_review.RuleEngine.Failures().IsDisabled(keyword.Rule->RuleID())) {
            continue;
        }
        m_review.RuleEngine.IncrementRuleExecutionCount();
        current = &keyword;
        if (!keyword.Needs.MayMatch(statement, traits)) {
            continue;
        }
        state.SetCurrentRuleID(keyword.RuleID);
        if (IsMatch(keyword, statement, traits)) {
            m_review.Violations.RaiseAtEvent(*keyword.Rule, location);
        }
    }
    if (current != nullptr) {
        state.SetCurrentRuleID(current->RuleID);  // so that the next line of the log names it
    }
}

bool KeywordEnforcement::IsMatch(
    KeywordTest& keyword, std::string_view statement, const TextTraits& traits) {
    bool isMatch = false;
    Explain(
        [&] { isMatch = keyword.Expression.Test(statement, traits); },
        [&] {
            if (keyword.Expression.IsMalformed()) {
                m_review.RuleEngine.CountPatternFailure(*keyword.Rule);
            } else {
                m_review.RuleEngine.CountPatternStop(*keyword.Rule);
            }
            return " in " + modRuleFacts::NameOf(*keyword.Rule);
        });
    return isMatch;
}

}  // namespace dorvik
