#pragma once

#include <cstdint>
#include <map>
#include <vector>

namespace dorvik {

/// The time that the scripts of each rule took, to find the expensive ones.
class RuleClock {
public:
    struct RuleTime {
        std::int32_t RuleID;
        std::int64_t Calls;
        double Seconds;  // wall-clock time of all calls
    };

    /// Counts one call of a rule.
    void Add(std::int32_t ruleId, double seconds);

    /// The rules that ran, the most expensive one first; of equals the lower number.
    std::vector<RuleTime> RuleTimes() const;

private:
    struct Sum {
        std::int64_t Calls = 0;
        double Seconds = 0;
    };
    std::map<std::int32_t, Sum> m_sums;
};

}  // namespace dorvik
