#pragma once

#include <cstdint>

namespace dorvik {

/// Counts violations, and sums their impacts, by severity.
class ViolationStatistics {
public:
    std::int32_t CriticalViolations() const { return m_critical.Count; }
    void SetCriticalViolations(std::int32_t count) { m_critical.Count = count; }
    std::int32_t CriticalImpact() const { return m_critical.Impact; }
    void SetCriticalImpact(std::int32_t impact) { m_critical.Impact = impact; }
    std::int32_t HighViolations() const { return m_high.Count; }
    void SetHighViolations(std::int32_t count) { m_high.Count = count; }
    std::int32_t HighImpact() const { return m_high.Impact; }
    void SetHighImpact(std::int32_t impact) { m_high.Impact = impact; }
    std::int32_t MediumViolations() const { return m_medium.Count; }
    void SetMediumViolations(std::int32_t count) { m_medium.Count = count; }
    std::int32_t MediumImpact() const { return m_medium.Impact; }
    void SetMediumImpact(std::int32_t impact) { m_medium.Impact = impact; }
    std::int32_t LowViolations() const { return m_low.Count; }
    void SetLowViolations(std::int32_t count) { m_low.Count = count; }
    std::int32_t LowImpact() const { return m_low.Impact; }
    void SetLowImpact(std::int32_t impact) { m_low.Impact = impact; }
    std::int32_t InfoViolations() const { return m_info.Count; }
    void SetInfoViolations(std::int32_t count) { m_info.Count = count; }
    std::int32_t InfoImpact() const { return m_info.Impact; }
    void SetInfoImpact(std::int32_t impact) { m_info.Impact = impact; }
    std::int32_t TotalViolations() const { return m_total.Count; }
    void SetTotalViolations(std::int32_t count) { m_total.Count = count; }
    std::int32_t TotalImpact() const { return m_total.Impact; }
    void SetTotalImpact(std::int32_t impact) { m_total.Impact = impact; }

    /// Counts one violation of severity 1 (critical) to 5 (information). Any other severity
    /// changes nothing, the totals included.
    void IncrementCount(std::int32_t severity, std::int32_t impact);

private:
    struct Tally {
        std::int32_t Count = 0;
        std::int32_t Impact = 0;
    };

    Tally m_critical;
    Tally m_high;
    Tally m_medium;
    Tally m_low;
    Tally m_info;
    Tally m_total;
};

}  // namespace dorvik
