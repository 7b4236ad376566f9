#pragma once

#include <cstdint>

namespace dorvik {

/// Runs rules on behalf of a review and counts them. One per review, owned by the driver.
///
/// Unauthorised keywords are the rules without a script: whoever tests one says so through
/// `IncrementRuleExecutionCount`. The total goes into the results database at the end of a project
/// and runs on from project to project.
class RuleEngine {
public:
    void IncrementRuleExecutionCount() { ++m_ruleExecutionCount; }
    std::int32_t RuleExecutionCount() const { return m_ruleExecutionCount; }
    void SetRuleExecutionCount(std::int32_t count) { m_ruleExecutionCount = count; }

private:
    std::int32_t m_ruleExecutionCount = 0;
};

}  // namespace dorvik
