#pragma once

#include "results/Finding.h"
#include "source/ViolationStatistics.h"

#include <cstdint>
#include <string>
#include <vector>

namespace dorvik {

class JsonOutput;
class ResultsDB;

/// What a review found in one project, at a glance. Paths are in the program's form.
struct ProjectResults {
    std::string Filename;  // of the project file, with its folder
    std::string Name;
    std::string ResultsFile;
    std::int32_t Files = 0;  // reviewed source files
    std::int32_t Lines = 0;  // counted source lines
    ViolationStatistics Violations;
    std::vector<Finding> Worst;
    std::vector<std::string> FailedMeasures;
    std::int32_t UnfinishedFiles = 0;  // source files that were not reviewed to their end
    bool Ended = true;   // false where the review runs still, was killed or lost results
    bool Passed = true;  // never with unfinished files, nor without `Ended`; it means nothing then
    std::string WhyIncomplete;  // where it is known; to be read after a colon

    /// REQUIRES: the database has a review open.
    static ProjectResults ReadFrom(ResultsDB& database);

    /// Takes the verdict away.
    void TakeLoss(const std::string& why);

    /// A sentence for a project that has no verdict. REQUIRES: not `Ended`.
    std::string WhyNoVerdict() const;
    /// The lines that a person reads.
    std::string Describe() const;
    /// The same as one JSON document.
    void WriteTo(JsonOutput& json) const;
};

}  // namespace dorvik
