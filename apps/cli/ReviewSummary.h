#pragma once

#include "results/Finding.h"
#include "source/ViolationStatistics.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class ReviewCriteria;
class ResultsDB;

/// What a review found, project by project, read back from the results databases.
class ReviewSummary {
public:
    /// Reads the results of every project of a finished review.
    explicit ReviewSummary(ReviewCriteria& criteria);

    /// Prints the summary of each reviewed project, worst findings first, to standard output.
    void Print() const;

    std::size_t ReviewedProjects() const { return m_projects.size(); }
    /// A project that could be loaded but left no results behind, and where they were to lie.
    struct MissingResults {
        std::string ProjectFile;
        std::string ResultsFile;
    };
    const std::vector<MissingResults>& WithoutResults() const { return m_withoutResults; }
    /// True if the verdict of every reviewed project is a pass.
    bool AllPassed() const;

private:
    struct ProjectResults {
        std::string Filename;  // of the project
        std::string ResultsFile;
        std::int32_t Files = 0;  // reviewed source files
        std::int32_t Lines = 0;  // counted source lines
        ViolationStatistics Violations;
        std::vector<Finding> Worst;
        std::vector<std::string> FailedMeasures;
        bool Passed = true;
    };

    static bool Read(ProjectResults& results);
    static std::string Describe(const ProjectResults& results);

    std::vector<ProjectResults> m_projects;
    std::vector<MissingResults> m_withoutResults;
};

}  // namespace dorvik
