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
        rules.Assigned.clear();  // left from an attempt that failed
        if (const auto* assigned = m_review.Rulebase.RuleLists().ParserEventCCList(number, false)) {
            for (const auto& rule : *assigned) {
                rules.Assigned.push_back({rule.get(), std::to_string(rule->RuleID())});
            }
        }
        rules.Prepared = true;
    }
    return rules;
}

void CodingEnforcement::EnforceCodingConventions(const EventLocation& location) {
    for (const AssignedRule& assigned : RulesOf(location.Event).Assigned) {
        RunRule(assigned, location);
    }
    const auto event = static_cast<std::int32_t>(location.Event);
    if (const auto* pending = m_review.Rulebase.RuleLists().PendingViolations(event)) {
        for (const auto& rule : *pending) {
            ResolvePendingViolation(*rule, location);
        }
    }
}

void CodingEnforcement::RunRule(const AssignedRule& assigned, const EventLocation& location) {
    CodingConvention& rule = *assigned.Rule;
    if (rule.Cancelled() || m_review.RuleEngine.Failures().IsDisabled(rule.RuleID())) {
        return;  // not run before its end event, or not at all
    }
    if (rule.PendingViolation()) {
        rule.SetTriggered(true);
    }
    m_review.State.SetCurrentRuleID(assigned.RuleID);
    const ScriptResult result = m_review.RuleEngine.ExecuteRuleCondition(rule.RuleID());
    if (result == ScriptResult::CancelPendingViolation) {
        rule.SetCancelled(true);
    } else if (result == ScriptResult::RaiseViolation) {
        m_review.Violations.RaiseAtEvent(rule, location);
    }
}

void CodingEnforcement::ResolvePendingViolation(
    CodingConvention& rule, const EventLocation& location) {
    const bool isDue =
        rule.Triggered() && !m_review.RuleEngine.Failures().IsDisabled(rule.RuleID());
    if (!rule.Cancelled() && isDue) {
        m_review.Violations.RaiseEndEventViolation(
            rule.ViolationDefinition(), location.OriginOf(rule), location.Event);
    } else {
        rule.SetCancelled(false);
    }
    rule.SetTriggered(false);
}

}  // namespace dorvik
