#include "enforcement/KeywordEnforcement.h"

#include "base/modText.h"
#include "enforcement/RuleEngine.h"
#include "foundation/Trap.h"
#include "rulebase/Rulebase.h"
#include "rulebase/modRuleFacts.h"

#include <algorithm>

namespace dorvik {

KeywordEnforcement::EventKeywords& KeywordEnforcement::KeywordsOf(ParserEvent event) {
    const auto number = static_cast<std::int32_t>(event);
    EventKeywords& keywords = m_keywords.at(static_cast<std::size_t>(number));
    if (!keywords.Prepared) {
        keywords.Prepared = true;
        if (const auto* rules = m_rulebase.RuleLists().ParserEventUKList(number)) {
            for (std::int32_t index = 1; index <= rules->Count(); ++index) {
                const IRule& rule = *rules->Item(index);
                KeywordTest& test = keywords.Tests.emplace_back();
                test.Rule = &rule;
                test.RuleID = std::to_string(rule.RuleID());
                test.Expression.SetPattern(rule.Condition());
                test.Needs = test.Expression.Needs();
                keywords.Pairs.push_back(test.Needs.Pairs);
            }
        }
    }
    return keywords;
}

void KeywordEnforcement::EnforceUnauthorisedKeywords(const EventPlace& place) {
    EventKeywords& keywords = KeywordsOf(place.Event);
    if (keywords.Tests.empty()) {
        return;
    }
    VB6ParserState& state = m_resultsManager.ParserState();
    const std::string_view statement = modText::TrimLeft(state.StrippedSourceStatement());
    const TextTraits traits(statement);
    const std::vector<PairSet>& pairs = keywords.Pairs;
    std::size_t applied = 0;
    for (std::size_t index = 0; index < pairs.size(); ++index) {
        if (!traits.Pairs.ContainsAll(pairs[index])) {
            continue;
        }
        KeywordTest& keyword = keywords.Tests[index];
        if (m_ruleEngine.IsSwitchedOff(keyword.Rule->RuleID()) ||
            !keyword.Needs.MayMatch(statement, traits)) {
            continue;
        }
        NoteApplied(std::span(keywords.Tests).subspan(applied, index + 1 - applied));
        applied = index + 1;
        if (IsMatch(keyword, statement, traits)) {
            Raise(*keyword.Rule, place);
        }
    }
    NoteApplied(std::span(keywords.Tests).subspan(applied));
}

/// Counts the rules, and whatever is logged next names the last of them.
void KeywordEnforcement::NoteApplied(std::span<const KeywordTest> keywords) {
    const auto isOn = [this](const KeywordTest& keyword) {
        return !m_ruleEngine.IsSwitchedOff(keyword.Rule->RuleID());
    };
    const bool areAllOn = m_ruleEngine.SwitchedOffRules().empty();
    const auto last = std::find_if(keywords.rbegin(), keywords.rend(), isOn);
    if (last != keywords.rend()) {
        m_resultsManager.ParserState().SetCurrentRuleID(last->RuleID);
        m_ruleEngine.AddToRuleExecutionCount(
            areAllOn ? static_cast<std::int32_t>(keywords.size())
                     : static_cast<std::int32_t>(std::ranges::count_if(keywords, isOn)));
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
