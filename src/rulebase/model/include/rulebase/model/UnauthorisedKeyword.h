#pragma once

#include "rulebase/model/EventRule.h"

namespace dorvik {

/// A rule whose condition is a regular expression, tried with case on each stripped statement.
class UnauthorisedKeyword final : public EventRule {
public:
    dorvik::RuleType RuleType() const override { return ruleTypeKeyword; }
    bool Triggered() const override { return m_triggered; }
    void SetTriggered(bool triggered) override { m_triggered = triggered; }
    bool Cancelled() const override { return m_cancelled; }
    void SetCancelled(bool cancelled) override { m_cancelled = cancelled; }
    bool PendingViolation() const override { return false; }
    std::shared_ptr<IRule> Clone() const override;

private:
    std::string_view ModuleName() const override { return "UnauthorisedKeyword"; }

    bool m_triggered = false;
    bool m_cancelled = false;
};

}  // namespace dorvik
