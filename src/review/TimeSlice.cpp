#include "TimeSlice.h"

#include "foundation/log/LogFile.h"
#include "foundation/log/Trap.h"
#include "foundation/log/modLog.h"

namespace dorvik {

std::optional<SliceResult> SliceGuard::Refuse(std::string_view module) const {
    const std::optional<Refusal> refusal = RefusalNow();
    if (!refusal) {
        return std::nullopt;
    }
    Trap({"SliceGuard", "Refuse"}, [&] {
        modLog::Log().LogEvent(refusal->Reason, "ReviewTimeSlice", module);
    });
    return refusal->Result;
}

std::optional<SliceGuard::Refusal> SliceGuard::RefusalNow() const {
    if (m_isRunning) {
        return Refusal{SliceResult::Continue, "A time slice was refused: another one is running."};
    }
    if (m_end) {
        return Refusal{*m_end, "A time slice was refused: the review has ended."};
    }
    if (!m_isOpen) {
        return Refusal{SliceResult::Failed, "A time slice was refused: the review has not begun."};
    }
    return std::nullopt;
}

}  // namespace dorvik
