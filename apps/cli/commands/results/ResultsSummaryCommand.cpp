#include "ResultsSummaryCommand.h"

#include "base/modText.h"
#include "cli/commands/results/ProjectResults.h"
#include "cli/commands/results/ResultsFile.h"
#include "cli/output/Console.h"
#include "cli/output/JsonOutput.h"
#include "results/ResultsDB.h"

namespace dorvik {

namespace {

void PrintAsJson(const ProjectResults& project) {
    JsonOutput json;
    project.WriteTo(json);
    json.Print();
}

/// One line, so that those of many projects make a table.
void PrintAsCsv(const ProjectResults& project) {
    const ViolationStatistics& found = project.Violations;
    ResultsRecords records(
        {"database",
         "project",
         "projectFile",
         "ended",
         "files",
         "lines",
         "critical",
         "high",
         "medium",
         "low",
         "info",
         "total",
         "impact",
         "passed",
         "failedMeasures"});
    records.Add(
        {modConsole::ShownPath(project.ResultsFile),
         project.Name,
         modConsole::ShownPath(project.Filename),
         project.Ended,
         project.Files,
         project.Lines,
         found.Count(Severity::Critical),
         found.Count(Severity::High),
         found.Count(Severity::Medium),
         found.Count(Severity::Low),
         found.Count(Severity::Information),
         found.TotalViolations(),
         found.TotalImpact(),
         project.Ended ? RecordValue(project.Passed) : RecordValue(),
         modText::Join(project.FailedMeasures, "; ")});
    records.PrintAsCsv();
}

}  // namespace

ExitCode RunResultsSummary(const std::string& database, const ResultsForm& form) {
    return modResultsFile::Read(database, [&](ResultsDB& results) {
        const ProjectResults project = ProjectResults::ReadFrom(results);
        if (form.Json) {
            PrintAsJson(project);
        } else if (form.Csv) {
            PrintAsCsv(project);
        } else {
            modConsole::Print(project.Describe());
        }
        return ExitCode::Passed;
    });
}

}  // namespace dorvik
