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
    std::string SourceFilesReviewed;  // empty leaves out this row and the five below
    std::string TotalSourceLines;
    std::string TotalViolations;
    std::string TotalImpact;
    std::string ViolationsRatio;
    std::string PercentageComments;
    std::string LogFile;  // inside path; empty leaves out the row
};

/// What the criteria table of a report shows. REQUIRES: what is referred to outlives this.
struct ReviewCriteriaInfo {
    static constexpr std::int32_t kNoRuleCount = -1;

    const RulebaseLoadCriteria& LoadCriteria;
    std::string Title;
    std::int32_t RuleCount = kNoRuleCount;  // `kNoRuleCount` leaves out the rules and the files
    std::int32_t RuleExecutions = kNoRuleCount;
    const CategoryList& Categories;
    const ToleranceSettings& Tolerances;
    std::int32_t TotalFiles = -1;  // below 0: not known
    std::int32_t ReviewedFiles = 0;
    std::string RuleEngine{};  // empty: this program's
};

}  // namespace dorvik
