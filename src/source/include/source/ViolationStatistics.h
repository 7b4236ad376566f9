#pragma once

#include "source/Severity.h"

#include <array>
#include <cstdint>

namespace dorvik {

/// A figure of each severity, in the order of `kSeverities`.
using SeverityFigures = std::array<std::int32_t, kSeverities.size()>;

/// Counts violations, and sums their impacts, by severity. The totals are figures of their own: writing
/// a figure of a severity leaves them as they are.
class ViolationStatistics {
public:
    std::int32_t Count(Severity severity) const { return m_counts[IndexOf(severity)]; }
    void SetCount(Severity severity, std::int32_t count) { m_counts[IndexOf(severity)] = count; }
    std::int32_t Impact(Severity severity) const { return m_impacts[IndexOf(severity)]; }
    void SetImpact(Severity severity, std::int32_t impact) {
        m_impacts[IndexOf(severity)] = impact;
    }
    const SeverityFigures& Counts() const { return m_counts; }
    const SeverityFigures& Impacts() const { return m_impacts; }

    std::int32_t TotalViolations() const { return m_totalCount; }
    void SetTotalViolations(std::int32_t count) { m_totalCount = count; }
    std::int32_t TotalImpact() const { return m_totalImpact; }
    void SetTotalImpact(std::int32_t impact) { m_totalImpact = impact; }

    /// Counts one violation, in the totals too. The number of a severity comes from a rule; one that is
    /// none changes nothing, the totals included.
    void IncrementCount(std::int32_t severity, std::int32_t impact);

private:
    SeverityFigures m_counts{};
    SeverityFigures m_impacts{};
    std::int32_t m_totalCount = 0;
    std::int32_t m_totalImpact = 0;
};

}  // namespace dorvik
