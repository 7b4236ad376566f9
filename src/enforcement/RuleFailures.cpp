#include "enforcement/RuleFailures.h"

#include "enforcement/ReviewLog.h"
#include "rulebase/model/IRule.h"
#include "rulebase/model/modRuleFacts.h"

namespace dorvik {

RuleFailures::RulePart RuleFailures::ScriptOf(std::int32_t ruleId, std::string_view ruleName) {
    return {ruleId, std::string(ruleName), "script"};
}

RuleFailures::RulePart RuleFailures::PatternOf(const IRule& rule) {
    return {rule.RuleID(), modRuleFacts::NameOf(rule), "pattern"};
}

void RuleFailures::CountStop(const RulePart& part, const ReviewLog* log) {
    CountedPart& stops = m_stops.try_emplace(part.RuleID, CountedPart{part}).first->second;
    if (++stops.Count != kStopsUntilDisabled) {
        return;
    }
    m_disabled.push_back(part);
    if (log != nullptr) {
        log->DumpDebugPrint(
            "Disabled for the rest of the review, because its " + std::string(part.What) +
                " was stopped " + std::to_string(kStopsUntilDisabled) + " times: " + part.RuleName,
            true);
    }
}

void RuleFailures::CountFailure(const RulePart& part) {
    ++m_failures.try_emplace(part.RuleID, CountedPart{part}).first->second.Count;
}

std::vector<RuleFailures::CountedPart> RuleFailures::StoppedRules() const {
    std::vector<CountedPart> rules;
    for (const auto& [ruleId, stops] : m_stops) {
        if (stops.Count < kStopsUntilDisabled) {
            rules.push_back(stops);
        }
    }
    return rules;
}

std::vector<RuleFailures::CountedPart> RuleFailures::FailedRules() const {
    std::vector<CountedPart> rules;
    for (const auto& [ruleId, failures] : m_failures) {
        rules.push_back(failures);
    }
    return rules;
}

}  // namespace dorvik
