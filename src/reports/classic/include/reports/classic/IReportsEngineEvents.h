#pragma once

#include <cstdint>

namespace dorvik {

class ProgressInfo;

/// Whoever makes reports hears of their progress, and can end them.
class IReportsEngineEvents {
public:
    virtual ~IReportsEngineEvents() = default;
    /// `state` is 31 for a project report, 32 for a source file report. `cancel` comes in false; true ends
    /// the reports with nothing more written.
    virtual void ReportsProgress(ProgressInfo& progress, std::int32_t state, bool& cancel) = 0;
};

}  // namespace dorvik
