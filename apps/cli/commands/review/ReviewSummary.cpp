#include "ReviewSummary.h"

#include "cli/output/Console.h"
#include "cli/output/FigureText.h"
#include "criteria/ReviewCriteria.h"
#include "platform/host/modFiles.h"
#include "results/ResultsDB.h"
#include "results/modResultsFilename.h"
#include "source/VirtualProject.h"

#include <algorithm>

namespace dorvik {

namespace {

/// False where the results file could not be made ready: what is in its place is of an older
/// review. A review that began and has a status counted an error as well.
bool HasBegun(const VirtualProject& project) {
    const ProjectOutcome& outcome = project.Outcome();
    return outcome.ReviewStatus == 0 || outcome.HasErrors() || outcome.ResultsLost.Count > 0;
}

}  // namespace

ReviewSummary::ReviewSummary(ReviewCriteria& criteria) {
    const std::string folder =
        criteria.UseProjectFolderResults() ? "" : criteria.FixedFolderResults();
    auto& projects = criteria.ProjectList();
    for (const auto& loaded : projects) {
        const VirtualProject& project = *loaded;
        ProjectResults results;
        results.Filename = project.Filename();
        results.ResultsFile = modDorvikUtils::CreateResultsFilename(results.Filename, folder);
        if (project.LoadStatus() != ProjectLoadStatus::Good) {
            continue;
        }
        if (HasBegun(project) && Read(results, project)) {
            m_projects.push_back(std::move(results));
        } else {
            m_withoutResults.push_back(
                {results.Filename, results.ResultsFile, project.Outcome().ResultsLost.Reason});
        }
    }
}

bool ReviewSummary::Read(ProjectResults& results, const VirtualProject& project) {
    if (!modFiles::FileExists(results.ResultsFile)) {
        return false;
    }
    ResultsDB database;
    if (!database.OpenReview(results.ResultsFile)) {
        return false;
    }
    const std::string filename = results.Filename;
    results = ProjectResults::ReadFrom(database);
    results.Filename = filename;  // as the user named it
    if (const LostResults& lost = project.Outcome().ResultsLost; lost.Count > 0) {
        results.TakeLoss(
            modFigureText::Counted(lost.Count, "result", "results") +
            " could not be stored: " + lost.Reason);
    }
    return true;
}

std::vector<const ProjectResults*> ReviewSummary::Incomplete() const {
    std::vector<const ProjectResults*> incomplete;
    for (const ProjectResults& project : m_projects) {
        if (!project.Ended) {
            incomplete.push_back(&project);
        }
    }
    return incomplete;
}

bool ReviewSummary::AllPassed() const {
    return std::all_of(m_projects.begin(), m_projects.end(), [](const ProjectResults& project) {
        return project.Passed;
    });
}

void ReviewSummary::Print() const {
    std::string text;
    for (const ProjectResults& project : m_projects) {
        text += (text.empty() ? "" : "\n") + project.Describe();
    }
    modConsole::Print(text);
}

}  // namespace dorvik
