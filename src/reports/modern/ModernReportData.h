#pragma once

#include "reports/modern/ModernReport.h"
#include "results/CategoryStatistics.h"
#include "results/ReviewData.h"
#include "results/StoredReviewCriteria.h"
#include "results/ToleranceFailure.h"
#include "results/Violation.h"
#include "source/SourceLineStatistics.h"
#include "source/ViolationStatistics.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace dorvik {

/// A severity level as the review had it.
struct ModernSeverity {
    std::string Title;
    bool Included = true;
};

/// A source file, or the project file, with its figures.
struct ModernFile {
    std::int32_t ID = 0;
    std::string Filename;
    std::string Path;  // its folder
    bool IsProjectFile = false;
    ViolationStatistics Violations;  // with those of its procedures and sections
    SourceLineStatistics Lines;
    std::int32_t AverageComplexity = 0;
    std::optional<std::int32_t> WorstComplexity;  // of its procedures, if there are any
    std::vector<ToleranceFailure> Failures;
    std::string UnreviewedReason;  // empty for a file that was read
};

/// A procedure, or a section of a file.
struct ModernProcedure {
    std::size_t File = 0;  // index in the list of files
    std::string Name;      // as it is shown: "Rate (Get)", "(Declarations)"
    bool IsSection = false;
    std::int32_t Complexity = 0;
    std::int32_t ID = 0;
    SeverityFigures Violations{};
    std::int32_t TotalViolations = 0;
    std::int32_t TotalImpact = 0;
};

/// A violation, and the indexes of its file and its procedure in their lists. Without a file it belongs to the
/// project itself, without a procedure to the file itself.
struct ModernViolation {
    std::int32_t ID = 0;
    dorvik::Violation Violation;
    std::optional<std::size_t> File;
    std::optional<std::size_t> Procedure;
};

/// All that the page shows, as plain values.
struct ModernReportData {
    std::string ProjectName;
    std::string ProjectFilename;
    std::string ProjectPath;
    ReviewData Review;
    StoredReviewCriteria Criteria;
    std::array<ModernSeverity, kSeverities.size()> Severities;  // in the order of `kSeverities`
    std::vector<CategoryStatistics> Categories;
    ViolationStatistics Violations;
    SourceLineStatistics Lines;
    bool HasTolerances = false;
    bool Passed = true;
    std::vector<ToleranceFailure> Failures;  // of the project: names without figures
    std::vector<UnreadFile> Unreviewed;
    std::vector<ModernFile> Files;
    std::vector<ModernProcedure> Procedures;
    std::vector<ModernViolation> AllViolations;

    /// Raises what reading raises.
    static ModernReportData ReadFrom(ResultsDB& results, const ModernReportFacts& facts);

    /// Without the project file.
    std::size_t SourceFileCount() const;
};

}  // namespace dorvik
