#pragma once

#include "enforcement/EventPlace.h"

#include <array>
#include <string>
#include <vector>

namespace dorvik {

class CodingConvention;
class RuleEngine;
class Rulebase;

/// Runs the coding conventions of an event.
///
/// | a pending rule is | at one of its events     | at its end event        |
/// |-------------------|--------------------------|-------------------------|
/// | idle              | runs, triggered          | stays idle              |
/// | triggered         | runs                     | its violation is raised |
/// | cancelled         | does not run             | idle again              |
///
/// `CancelPendingViolation` in its script cancels it, at the end event too, if that is one of its
/// own. A rule whose end event never comes keeps its state into the next file.
class CodingEnforcement {
public:
    /// REQUIRES: all three outlive this object.
    CodingEnforcement(Rulebase& rulebase, RuleEngine& ruleEngine, ResultsManager& resultsManager)
        : m_rulebase(rulebase), m_ruleEngine(ruleEngine), m_resultsManager(resultsManager) {}

    /// First the scripts of the event's rules, then the pending violations that fall due at it.
    void EnforceCodingConventions(const EventPlace& place);

private:
    struct AssignedRule {
        CodingConvention* Rule = nullptr;  // the rulebase's
        std::string RuleID;
    };
    struct EventRules {
        bool Prepared = false;
        std::vector<AssignedRule> Assigned;
    };

    EventRules& RulesOf(ParserEvent event);
    void RunRule(const AssignedRule& assigned, const EventPlace& place);
    void SettlePendingViolation(CodingConvention& rule, const EventPlace& place);

    Rulebase& m_rulebase;
    RuleEngine& m_ruleEngine;
    ResultsManager& m_resultsManager;
    std::array<EventRules, kLastParserEvent + 1> m_rules;  // by event number
};

}  // namespace dorvik
