#pragma once

#include <cstdint>
#include <map>
#include <vector>

namespace dorvik {

/// How long the scripts of the rules ran, for those who want a rulebase to be quick.
class RuleClock {
public:
    struct RuleTime {
        std::int32_t RuleID;
        std::int64_t Calls;
        double Seconds;  // all calls together, on the wall
    };

    /// Takes one call of a rule into account.
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
