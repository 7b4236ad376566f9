#include "enforcement/CodingEnforcement.h"

#include "enforcement/RuleEngine.h"
#include "rulebase/model/Rulebase.h"

namespace dorvik {

namespace {

/// At the end of something a violation is told at its start.
bool IsTellingTheStart(ParserEvent event) {
    return event == ParserEvent::EndEnum || event == ParserEvent::EndType ||
           event == ParserEvent::EndDeclarations || event == ParserEvent::EndProcedure;
}

}  // namespace

CodingEnforcement::EventRules& CodingEnforcement::RulesOf(ParserEvent event) {
    const auto number = static_cast<std::int32_t>(event);
    EventRules& rules = m_rules.at(static_cast<std::size_t>(number));
    if (!rules.Prepared) {
        rules.Assigned.clear();  // what an attempt that failed left
        if (const auto* assigned = m_rulebase.RuleLists().ParserEventCCList(number, false)) {
            for (std::int32_t index = 1; index <= assigned->Count(); ++index) {
                CodingConvention& rule = *assigned->Item(index);
                rules.Assigned.push_back({&rule, std::to_string(rule.RuleID())});
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
    if (const auto* pending = m_rulebase.RuleLists().PendingViolations(event)) {
        for (std::int32_t index = 1; index <= pending->Count(); ++index) {
            SettlePendingViolation(*pending->Item(index), place);
        }
    }
}

void CodingEnforcement::RunRule(const AssignedRule& assigned, const EventPlace& place) {
    CodingConvention& rule = *assigned.Rule;
    if (rule.Cancelled() || m_ruleEngine.IsSwitchedOff(rule.RuleID())) {
        return;  // silent until its end event, or for good
    }
    if (rule.PendingViolation()) {
        rule.SetTriggered(true);
    }
    m_resultsManager.ParserState().SetCurrentRuleID(assigned.RuleID);
    const ScriptResult result = m_ruleEngine.ExecuteRuleCondition(rule.RuleID());
    if (result == ScriptResult::CancelPendingViolation) {
        rule.SetCancelled(true);
    } else if (result == ScriptResult::RaiseViolation) {
        if (IsTellingTheStart(place.Event)) {
            m_resultsManager.RaiseEndEventViolation(
                rule.ViolationDefinition(), place.OriginOf(rule), place.Event);
        } else {
            m_resultsManager.RaiseViolation(rule.ViolationDefinition(), place.OriginOf(rule), "");
        }
    }
}

void CodingEnforcement::SettlePendingViolation(CodingConvention& rule, const EventPlace& place) {
    const bool isDue = rule.Triggered() && !m_ruleEngine.IsSwitchedOff(rule.RuleID());
    if (!rule.Cancelled() && isDue) {
        m_resultsManager.RaiseEndEventViolation(
            rule.ViolationDefinition(), place.OriginOf(rule), place.Event);
    } else {
        rule.SetCancelled(false);
    }
    rule.SetTriggered(false);
}

}  // namespace dorvik
