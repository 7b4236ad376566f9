#include "cli/ReviewSummary.h"

#include "cli/Console.h"
#include "criteria/ReviewCriteria.h"
#include "platform/modFiles.h"
#include "results/ResultsDB.h"
#include "results/modResultsFilename.h"
#include "source/VirtualProject.h"

#include <algorithm>
#include <array>

namespace dorvik {

namespace {

/// How many findings the summary shows of a project; the database has them all.
constexpr std::int32_t kShownFindings = 20;

constexpr std::int32_t kProjectItem = 1;

constexpr std::array<std::string_view, 5> kSeverities{"critical", "high", "medium", "low", "info"};

/// 1234567 as "1,234,567".
std::string Grouped(std::int32_t number) {
    std::string text = std::to_string(number);
    for (std::size_t place = text.size(); place > 3; place -= 3) {
        text.insert(place - 3, 1, ',');
    }
    return text;
}

std::string Counted(std::int32_t number, std::string_view one, std::string_view many) {
    return Grouped(number).append(" ").append(number == 1 ? one : many);
}

std::string SeverityWord(std::int32_t level) {
    const bool known = level >= 1 && level <= static_cast<std::int32_t>(kSeverities.size());
    return known ? std::string(kSeverities.at(static_cast<std::size_t>(level - 1))) : "unknown";
}

std::string Violations(const ViolationStatistics& stats) {
    const std::array<std::int32_t, 5> counts{
        stats.CriticalViolations(),
        stats.HighViolations(),
        stats.MediumViolations(),
        stats.LowViolations(),
        stats.InfoViolations()};
    std::string text = Grouped(stats.TotalViolations());
    std::string separator = "  (";
    for (std::size_t level = 0; level < counts.size(); ++level) {
        text += separator + Grouped(counts.at(level)) + " " + std::string(kSeverities.at(level));
        separator = ", ";
    }
    return text + ")";
}

/// False where the results file could not be made ready: what lies in its place is of an older
/// review. A review that began and has a status counted an error as well.
bool HasBegun(const VirtualProject& project) {
    return project.ReviewStatus() == 0 || project.ComponentErrors() > 0 ||
           project.ReferenceErrors() > 0 || project.ScanErrors() > 0 || project.FileErrors() > 0;
}

std::string Describe(const Finding& finding) {
    std::string place = finding.Filename;
    if (finding.LineNumber > 0) {
        place += ":" + std::to_string(finding.LineNumber);
    }
    std::string text =
        "    " + place + ": " + SeverityWord(finding.Severity) + ": " + finding.Title;
    if (!finding.LocationMember.empty()) {
        text += " in " + finding.LocationMember;
    }
    return text + "\n";
}

}  // namespace

ReviewSummary::ReviewSummary(ReviewCriteria& criteria) {
    const std::string folder =
        criteria.UseProjectFolderResults() ? "" : criteria.FixedFolderResults();
    auto& projects = criteria.ProjectList();
    for (std::int32_t index = 1; index <= projects.Count(); ++index) {
        ProjectResults results;
        results.Filename = projects.Item(index)->Filename();
        results.ResultsFile = modDorvikUtils::CreateResultsFilename(results.Filename, folder);
        if (projects.Item(index)->LoadStatus() != ProjectLoadStatus::Good) {
            continue;
        }
        if (HasBegun(*projects.Item(index)) && Read(results)) {
            m_projects.push_back(std::move(results));
        } else {
            m_withoutResults.push_back({results.Filename, results.ResultsFile});
        }
    }
}

bool ReviewSummary::Read(ProjectResults& results) {
    if (!modFiles::FileExists(results.ResultsFile)) {
        return false;
    }
    ResultsDB database;
    if (!database.OpenReview(results.ResultsFile)) {
        return false;
    }
    results.Files = database.GetSourceFileCount("") - 1;  // the project file has a row there, too
    results.Lines = database.GetLineStats(kProjectItem, database.ProjectID()).TotalLines();
    results.Violations = database.GetViolationStats(kProjectItem, database.ProjectID());
    results.Worst = database.GetWorstFindings(kShownFindings);
    std::vector<ToleranceFailure> failures;
    results.Passed = database.TolerancePass(kProjectItem, 0, failures);
    for (const ToleranceFailure& failure : failures) {
        results.FailedMeasures.push_back(failure.Description);
    }
    database.CloseReview();
    return true;
}

bool ReviewSummary::AllPassed() const {
    return std::all_of(m_projects.begin(), m_projects.end(), [](const ProjectResults& project) {
        return project.Passed;
    });
}

std::string ReviewSummary::Describe(const ProjectResults& results) {
    std::string text = modConsole::ShownPath(results.Filename) + "\n";
    text += "  " + Counted(results.Files, "file", "files") + ", " +
            Counted(results.Lines, "line", "lines") + "\n";
    text += "  Violations  " + Violations(results.Violations) + "\n";
    for (const Finding& finding : results.Worst) {
        text += dorvik::Describe(finding);
    }
    const std::int32_t hidden =
        results.Violations.TotalViolations() - static_cast<std::int32_t>(results.Worst.size());
    if (hidden > 0) {
        text += "    and " + Grouped(hidden) + " more\n";
    }
    text += "  Verdict     " + std::string(results.Passed ? "passed" : "failed");
    std::string separator = ": ";
    for (const std::string& measure : results.FailedMeasures) {
        text += separator + measure;
        separator = ", ";
    }
    return text + "\n  Results     " + modConsole::ShownPath(results.ResultsFile) + "\n";
}

void ReviewSummary::Print() const {
    std::string text;
    for (const ProjectResults& project : m_projects) {
        text += (text.empty() ? "" : "\n") + Describe(project);
    }
    modConsole::Print(text);
}

}  // namespace dorvik
