#pragma once

#include "enforcement/EventLocation.h"
#include "enforcement/ReviewContext.h"

#include <array>
#include <string>
#include <vector>

namespace dorvik {

class CodingConvention;

/// Runs the coding conventions of an event.
///
/// | a pending rule is | at one of its events     | at its end event        |
/// |-------------------|--------------------------|-------------------------|
/// | idle              | runs, triggered          | stays idle              |
/// | triggered         | runs                     | its violation is raised |
/// | cancelled         | does not run             | idle again              |
///
/// `CancelPendingViolation` in its script cancels it, at the end event too, if that is one of its
/// own. A rule whose end event does not occur in a file keeps its state in the next file.
class CodingEnforcement {
public:
    explicit CodingEnforcement(const ReviewContext& review) : m_review(review) {}

    /// First the scripts of the event's rules, then the pending violations that fall due at it.
    void EnforceCodingConventions(const EventLocation& location);

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
    void RunRule(const AssignedRule& assigned, const EventLocation& location);
    void ResolvePendingViolation(CodingConvention& rule, const EventLocation& location);

    const ReviewContext m_review;
    std::array<EventRules, kLastParserEvent + 1> m_rules;  // by event number
};

}  // namespace dorvik
