#include "source/ViolationStatistics.h"

namespace dorvik {

void ViolationStatistics::IncrementCount(std::int32_t severity, std::int32_t impact) {
    static constexpr Tally ViolationStatistics::*kBySeverity[] = {
        &ViolationStatistics::m_critical,
        &ViolationStatistics::m_high,
        &ViolationStatistics::m_medium,
        &ViolationStatistics::m_low,
        &ViolationStatistics::m_info,
    };
    if (severity < 1 || severity > 5) {
        return;
    }
    Tally& tally = this->*kBySeverity[severity - 1];
    ++tally.Count;
    tally.Impact += impact;
    ++m_total.Count;
    m_total.Impact += impact;
}

}  // namespace dorvik
