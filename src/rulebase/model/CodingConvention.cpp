#include "rulebase/model/CodingConvention.h"

#include "foundation/log/Trap.h"

namespace dorvik {

void CodingConvention::SetTriggered(bool triggered) {
    if (m_pendingViolation) {
        m_triggered = triggered;
    }
}

void CodingConvention::SetCancelled(bool cancelled) {
    if (m_pendingViolation) {
        m_cancelled = cancelled;
    }
}

void CodingConvention::SetPendingViolation(bool pending) {
    m_pendingViolation = pending;
    MarkDirty();
}

void CodingConvention::SetEndEventID(std::int32_t eventID) {
    m_endEventID = eventID;
    MarkDirty();
}

std::shared_ptr<IRule> CodingConvention::Clone() const {
    return Trapped({"CodingConvention", "IRule_Clone"}, nullptr, [&]() -> std::shared_ptr<IRule> {
        const auto clone = std::make_shared<CodingConvention>();
        clone->CopyCommonFields(*this);
        clone->SetEndEventID(m_endEventID);
        clone->CopyEvents(*this);
        clone->SetPendingViolation(m_pendingViolation);
        return clone;
    });
}

}  // namespace dorvik
