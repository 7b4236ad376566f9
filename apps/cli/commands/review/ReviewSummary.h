#pragma once

#include "cli/commands/results/ProjectResults.h"

#include <string>
#include <vector>

namespace dorvik {

class ReviewCriteria;
class VirtualProject;

/// What a review found, project by project, read back from the results databases.
class ReviewSummary {
public:
    /// Reads the results of every project of a finished review.
    explicit ReviewSummary(ReviewCriteria& criteria);

    /// Prints the summary of each reviewed project, worst findings first, to standard output.
    void Print() const;

    std::size_t ReviewedProjects() const { return m_projects.size(); }
    /// A project that could be loaded but left no results, and where they were to be.
    struct MissingResults {
        std::string ProjectFile;
        std::string ResultsFile;
        std::string Reason;  // to be read after a colon; empty where it is not known
    };
    const std::vector<MissingResults>& WithoutResults() const { return m_withoutResults; }
    /// The projects whose results are not whole, and which have no verdict for that reason.
    std::vector<const ProjectResults*> Incomplete() const;
    /// True if the verdict of every reviewed project is a pass.
    bool AllPassed() const;

private:
    static bool Read(ProjectResults& results, const VirtualProject& project);

    std::vector<ProjectResults> m_projects;
    std::vector<MissingResults> m_withoutResults;
};

}  // namespace dorvik
