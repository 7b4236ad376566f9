#pragma once

#include "rulebase/model/EventRule.h"

namespace dorvik {

/// A rule whose condition is a script, run at each of its parser events. With `PendingViolation`
/// the violation is held back until the end event, and the script can cancel it until then.
class CodingConvention final : public EventRule {
public:
    dorvik::RuleType RuleType() const override { return ruleTypeCoding; }
    bool Triggered() const override { return m_triggered; }
    /// Required: ignored unless `PendingViolation` is true, as is `SetCancelled`.
    void SetTriggered(bool triggered) override;
    bool Cancelled() const override { return m_cancelled; }
    void SetCancelled(bool cancelled) override;
    bool PendingViolation() const override { return m_pendingViolation; }
    void SetPendingViolation(bool pending);
    std::shared_ptr<IRule> Clone() const override;

    /// The parser event at which a pending violation is settled; -1 is none.
    std::int32_t EndEventID() const { return m_endEventID; }
    void SetEndEventID(std::int32_t eventID);

private:
    std::string_view ModuleName() const override { return "CodingConvention"; }

    std::int32_t m_endEventID = -1;
    bool m_pendingViolation = false;
    bool m_triggered = false;
    bool m_cancelled = false;
};

}  // namespace dorvik
