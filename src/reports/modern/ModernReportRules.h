#pragma once

#include "ModernReportData.h"
#include "reports/format/CommonEnds.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace dorvik {

/// What the violations of one rule share. The page has it once, and for each violation only the rest, which keeps a
/// page with thousands of violations small.
struct ModernRule {
    std::int32_t RuleID = 0;
    std::int32_t RuleType = 0;
    std::int32_t Severity = 0;
    std::int32_t CategoryID = 0;
    std::int32_t Impact = 0;
    std::string Title;
    CommonEnds Description;
    CommonEnds Advice;
};

/// The rules of the violations, in the order of their first violations.
struct ModernRuleTable {
    std::vector<ModernRule> Rules;
    std::vector<std::size_t> RuleOfViolation;  // by the index of the violation

    static ModernRuleTable Of(const std::vector<ModernViolation>& violations);
};

}  // namespace dorvik
