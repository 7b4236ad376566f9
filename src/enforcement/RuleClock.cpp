#include "enforcement/RuleClock.h"

#include <algorithm>

namespace dorvik {

void RuleClock::Add(std::int32_t ruleId, double seconds) {
    Sum& sum = m_sums[ruleId];
    ++sum.Calls;
    sum.Seconds += seconds;
}

std::vector<RuleClock::RuleTime> RuleClock::RuleTimes() const {
    std::vector<RuleTime> times;
    for (const auto& [ruleId, sum] : m_sums) {
        times.push_back({ruleId, sum.Calls, sum.Seconds});
    }
    std::stable_sort(times.begin(), times.end(), [](const RuleTime& left, const RuleTime& right) {
        return left.Seconds > right.Seconds;
    });
    return times;
}

}  // namespace dorvik
