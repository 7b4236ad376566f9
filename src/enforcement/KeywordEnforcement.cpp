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

KeywordEnforcement::EventKeywords& KeywordEnforcement::KeywordsOf(ParserEvent event) {
    const auto number = static_cast<std::int32_t>(event);
    EventKeywords& keywords = m_keywords.at(static_cast<std::size_t>(number));
    if (!keywords.Prepared) {
        keywords = {};  // an earlier attempt may have failed
        const RuleLists& lists = std::as_const(m_review.Rulebase).RuleLists();
        if (const auto* rules = lists.ParserEventUKList(number)) {
            for (const auto& rule : *rules) {
                keywords.Keywords.push_back(
                    {rule.get(),
                     rule->RuleID(),
                     std::to_string(rule->RuleID()),
                     keywords.Patterns.Add(rule->Condition())});
            }
        }
        keywords.Prepared = true;
    }
    return keywords;
}

void KeywordEnforcement::EnforceUnauthorisedKeywords(const EventLocation& location) {
    EventKeywords& keywords = KeywordsOf(location.Event);
    if (keywords.Keywords.empty()) {
        return;
    }
    VB6ParserState& state = m_review.State;
    keywords.Patterns.SetText(modText::TrimLeft(state.StrippedSourceStatement()));
    const Keyword* current = nullptr;
    const Keyword* tested = nullptr;  // while its pattern is
    Explain(
        [&] {
            for (const Keyword& keyword : keywords.Keywords) {
                if (m_review.RuleEngine.Failures().IsDisabled(keyword.RuleID)) {
                    continue;
                }
                m_review.RuleEngine.IncrementRuleExecutionCount();
                current = tested = &keyword;
                const bool isMatch = keywords.Patterns.Matches(keyword.Pattern);
                tested = nullptr;
                if (isMatch) {
                    state.SetCurrentRuleID(keyword.RuleIDText);
                    m_review.Violations.RaiseAtEvent(*keyword.Rule, location);
                }
            }
        },
        [&] {
            return tested == nullptr ? std::string() : NoteFailure(*tested, keywords.Patterns);
        });
    if (current != nullptr) {
        state.SetCurrentRuleID(current->RuleIDText);  // so that the next line of the log names it
    }
}

std::string KeywordEnforcement::NoteFailure(const Keyword& keyword, const PatternSet& patterns) {
    m_review.State.SetCurrentRuleID(keyword.RuleIDText);
    if (patterns.IsMalformed(keyword.Pattern)) {
        m_review.RuleEngine.CountPatternFailure(*keyword.Rule);
    } else {
        m_review.RuleEngine.CountPatternStop(*keyword.Rule);
    }
    return " in " + modRuleFacts::NameOf(*keyword.Rule);
}

}  // namespace dorvik
