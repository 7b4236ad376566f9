#include "TimeSlice.h"

#include "foundation/log/LogFile.h"
#include "foundation/log/Trap.h"
#include "foundation/log/modLog.h"

namespace dorvik {

std::optional<SliceResult> SliceGuard::Reject(std::string_view module) const {
    const std::optional<Rejection> rejection = CurrentRejection();
    if (!rejection) {
        return std::nullopt;
    }
    Trap({"SliceGuard", "Reject"}, [&] {
        modLog::Log().LogEvent(rejection->Reason, "ReviewTimeSlice", module);
    });
    return rejection->Result;
}

std::optional<SliceGuard::Rejection> SliceGuard::CurrentRejection() const {
    if (m_isRunning) {
        return Rejection{
            SliceResult::Continue, "A time slice was rejected: another one is running."};
    }
    if (m_end) {
        return Rejection{*m_end, "A time slice was rejected: the review has ended."};
    }
    if (!m_isOpen) {
        return Rejection{
            SliceResult::Failed, "A time slice was rejected: the review has not begun."};
    }
    return std::nullopt;
}

}  // namespace dorvik
