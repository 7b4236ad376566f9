#pragma once

#include "reports/classic/IReportsEngineEvents.h"

#include <cstdint>

namespace dorvik {

class ProgressInfo;

/// The progress of one run of reports, which its pages report to the listener.
class ReportProgress {
public:
    /// States that listeners receive.
    static constexpr std::int32_t kProjectReportState = 31;
    static constexpr std::int32_t kSourceFileReportState = 32;

    /// `events` is null if there is no listener. REQUIRES: both outlive this.
    ReportProgress(ProgressInfo& info, IReportsEngineEvents* events)
        : m_info(info), m_events(events) {}

    ProgressInfo& Info() { return m_info; }
    /// Raises the event, lets the host process its own events, and returns the cancel flag.
    bool Update(std::int32_t state);

private:
    ProgressInfo& m_info;
    IReportsEngineEvents* m_events;
};

}  // namespace dorvik
