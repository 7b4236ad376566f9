#include "CodingEnforcement.h"

#include "enforcement/RuleEngine.h"
#include "enforcement/ViolationLog.h"
#include "parser/VB6ParserState.h"
#include "rulebase/model/Rulebase.h"

namespace dorvik {

CodingEnforcement::EventRules& CodingEnforcement::RulesOf(ParserEvent event) {
    const auto number = static_cast<std::int32_t>(event);
    EventRules& rules = m_rules.at(static_cast<std::size_t>(number));
    if (!rules.Prepared) {
        rules.Assigned.clear();  // what an attempt that failed left
        if (const auto* assigned = m_review.Rulebase.RuleLists().ParserEventCCList(number, false)) {
            for (const auto& rule : *assigned) {
                rules.Assigned.push_back({rule.get(), std::to_string(rule->RuleID())});
            }
        }
        rules.Prepared = true;
    }
    return rules;
}

void CodingEnforcement::EnforceCodingConventions(const EventPlace& place) {
    for (const AssignedRule& assigned : RulesOf(place.Event).Assigned) {
        RunRule(assigned, place);
    }
    const auto event = static_cast<std::int32_t>(place.Event);
    if (const auto* pending = m_review.Rulebase.RuleLists().PendingViolations(event)) {
        for (const auto& rule : *pending) {
            SettlePendingViolation(*rule, place);
        }
    }
}

void CodingEnforcement::RunRule(const AssignedRule& assigned, const EventPlace& place) {
    CodingConvention& rule = *assigned.Rule;
    if (rule.Cancelled() || m_review.RuleEngine.IsSwitchedOff(rule.RuleID())) {
        return;  // silent until its end event, or for good
    }
    if (rule.PendingViolation()) {
        rule.SetTriggered(true);
    }
    m_review.State.SetCurrentRuleID(assigned.RuleID);
    const ScriptResult result = m_review.RuleEngine.ExecuteRuleCondition(rule.RuleID());
    if (result == ScriptResult::CancelPendingViolation) {
        rule.SetCancelled(true);
    } else if (result == ScriptResult::RaiseViolation) {
        m_review.Violations.RaiseAtEvent(rule, place);
    }
}

void CodingEnforcement::SettlePendingViolation(CodingConvention& rule, const EventPlace& place) {
    const bool isDue = rule.Triggered() && !m_review.RuleEngine.IsSwitchedOff(rule.RuleID());
    if (!rule.Cancelled() && isDue) {
        m_review.Violations.RaiseEndEventViolation(
            rule.ViolationDefinition(), place.OriginOf(rule), place.Event);
    } else {
        rule.SetCancelled(false);
    }
    rule.SetTriggered(false);
}

}  // namespace dorvik
