#include "source/ViolationStatistics.h"

namespace dorvik {

void ViolationStatistics::IncrementCount(std::int32_t severity, std::int32_t impact) {
    const std::optional<Severity> known = SeverityOf(severity);
    if (!known) {
        return;
    }
    ++m_counts[IndexOf(*known)];
    m_impacts[IndexOf(*known)] += impact;
    ++m_totalCount;
    m_totalImpact += impact;
}

}  // namespace dorvik
