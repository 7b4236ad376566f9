#pragma once

#include "rulebase/model/CategoryList.h"
#include "rulebase/model/RulebaseLoadCriteria.h"
#include "rulebase/model/ToleranceSettings.h"

#include <cstdint>
#include <string>

namespace dorvik {

/// The rows of the "Review Summary Information" of a report, formatted.
struct ReviewSummaryInfo {
    std::string Heading;  // of the first row: "Project" or "Batch"
    std::string Value;
    std::string ReviewedBy;
    std::string ReviewStart;
    std::string ReviewEnd;
    std::string ReviewDuration;
    std::string SourceFilesReviewed;  // if empty, this row and the five below are omitted
    std::string TotalSourceLines;
    std::string TotalViolations;
    std::string TotalImpact;
    std::string ViolationsRatio;
    std::string PercentageComments;
    std::string LogFile;  // internal path; if empty, the row is omitted
};

/// What the criteria table of a report shows. REQUIRES: what is referred to outlives this.
struct ReviewCriteriaInfo {
    static constexpr std::int32_t kNoRuleCount = -1;

    const RulebaseLoadCriteria& LoadCriteria;
    std::string Title;
    std::int32_t RuleCount = kNoRuleCount;  // without it no rows of rules and files
    std::int32_t RuleExecutions = kNoRuleCount;
    const CategoryList& Categories;
    const ToleranceSettings& Tolerances;
    std::int32_t TotalFiles = -1;  // below 0: unknown
    std::int32_t ReviewedFiles = 0;
    std::string RuleEngine{};  // if empty, that of this program
};

}  // namespace dorvik
