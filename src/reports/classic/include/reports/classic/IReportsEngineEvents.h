#pragma once

#include <cstdint>

namespace dorvik {

class ProgressInfo;

/// Receives the progress of reports, and can cancel them.
class IReportsEngineEvents {
public:
    virtual ~IReportsEngineEvents() = default;
    /// `state` is 31 for a project report, 32 for a source file report. `cancel` is false at first; if it is set,
    /// the reports end and nothing more is written.
    virtual void ReportsProgress(ProgressInfo& progress, std::int32_t state, bool& cancel) = 0;
};

}  // namespace dorvik
