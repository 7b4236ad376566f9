#include "cli/commands/results/ProjectResults.h"

#include "cli/commands/results/ResultsItems.h"
#include "cli/output/Console.h"
#include "cli/output/FigureText.h"
#include "cli/output/JsonOutput.h"
#include "cli/output/SeverityNames.h"
#include "cli/output/TablePrinter.h"
#include "foundation/log/Trap.h"
#include "results/ResultsDB.h"
#include "results/UnfinishedFiles.h"

#include <algorithm>

namespace dorvik {

namespace {

/// How many findings are shown of a project; the database has them all.
constexpr std::int32_t kShownFindings = 20;

/// The figures of the project are stored when its review ends; until then they are counted from the rows.
ViolationStatistics CountRows(ResultsDB& database) {
    ViolationStatistics stats;
    Trap({"ProjectResults", "CountRows"}, [&] {
        auto rows = database.OpenRecordSource(
            "SELECT Severity, Count(ViolationID) As ViolCount, Sum(Impact) As ViolImpact "
            "FROM Violations GROUP BY Severity");
        for (; rows && !rows->EOF_(); rows->MoveNext()) {
            const std::int32_t count = rows->Value("ViolCount").AsLong();
            if (const auto severity = SeverityOf(rows->Value("Severity").AsLong())) {
                stats.SetCount(*severity, count);
            }
            stats.SetTotalViolations(stats.TotalViolations() + count);
            stats.SetTotalImpact(stats.TotalImpact() + rows->Value("ViolImpact").AsLong());
        }
    });
    return stats;
}

std::string DescribeViolations(const ViolationStatistics& stats) {
    std::string text = modFigureText::Grouped(stats.TotalViolations());
    std::string separator = "  (";
    for (const Severity severity : kSeverities) {
        text += separator + modFigureText::Grouped(stats.Count(severity)) + " " +
                modSeverityNames::Word(severity);
        separator = ", ";
    }
    return text + ")";
}

std::string DescribeFinding(const Finding& finding) {
    std::string place = finding.Filename;
    if (finding.LineNumber > 0) {
        place += ":" + std::to_string(finding.LineNumber);
    }
    std::string text =
        place + ": " + modSeverityNames::Word(finding.Severity) + ": " + finding.Title;
    if (!finding.LocationMember.empty()) {
        text += " in " + finding.LocationMember;
    }
    return "    " + modTerminalText::Harmless(text) + "\n";
}

std::string Reason(const ProjectResults& results) {
    return results.WhyIncomplete.empty() ? "the review did not finish" : results.WhyIncomplete;
}

std::string DescribeUnfinished(const ProjectResults& results) {
    return modFigureText::Grouped(results.UnfinishedFiles) + " of " +
           modFigureText::Counted(results.Files, "file", "files") +
           (results.UnfinishedFiles == 1 ? " was" : " were") + " not reviewed completely";
}

std::string DescribeVerdict(const ProjectResults& results) {
    std::string text = "  Verdict     ";
    if (!results.Ended) {
        return text + "none: " + Reason(results) + "\n";
    }
    if (results.FailedMeasures.empty() && results.UnfinishedFiles > 0) {
        return text + "none: " + DescribeUnfinished(results) + "\n";
    }
    text += results.Passed ? "passed" : "failed";
    std::string separator = ": ";
    for (const std::string& measure : results.FailedMeasures) {
        text += separator + measure;
        separator = ", ";
    }
    if (results.UnfinishedFiles > 0) {
        text += "; " + DescribeUnfinished(results);
    }
    return text + "\n";
}

void WriteViolations(const ViolationStatistics& stats, JsonOutput& json) {
    json.BeginObject("violations");
    for (const Severity severity : kSeverities) {
        json.Number(modSeverityNames::Word(severity), stats.Count(severity));
    }
    json.Number("total", stats.TotalViolations());
    json.EndObject();
    json.Number("impact", stats.TotalImpact());
}

void WriteFinding(const Finding& finding, JsonOutput& json) {
    json.BeginObject();
    json.Text("file", finding.Filename);
    json.Number("line", finding.LineNumber);
    json.Number("severity", finding.Severity);
    json.Text("title", finding.Title);
    json.Text("member", finding.LocationMember);
    json.EndObject();
}

}  // namespace

ProjectResults ProjectResults::ReadFrom(ResultsDB& database) {
    ProjectResults results;
    results.Filename = ResultsItems::FullPath(
        database.Items().GetProjectData("Path"), database.Items().GetProjectData("Filename"));
    results.Name = database.Items().GetProjectData("Name");
    results.ResultsFile = database.Filename();
    results.Ended = !database.Review().GetReviewData().End.IsZero();
    // The project file has a row there, too.
    results.Files = std::max(database.Items().GetSourceFileCount("") - 1, 0);
    results.Lines =
        database.Figures().GetLineStats(ItemType::Project, database.ProjectID()).TotalLines();
    results.Violations =
        results.Ended
            ? database.Figures().GetViolationStats(ItemType::Project, database.ProjectID())
            : CountRows(database);
    results.Worst = database.Violations().GetWorstFindings(kShownFindings);
    std::vector<ToleranceFailure> failures;
    results.UnfinishedFiles =
        static_cast<std::int32_t>(dorvik::UnfinishedFiles::ReadFrom(database).Count());
    results.Passed = database.Verdict().TolerancePass(ItemType::Project, 0, failures) &&
                     results.Ended && results.UnfinishedFiles == 0;
    for (const ToleranceFailure& failure : failures) {
        results.FailedMeasures.push_back(failure.Description);
    }
    if (const StoreFailures& lost = database.Failures(); lost.Count() > 0) {
        results.TakeLoss("stored results cannot be read: " + lost.Reason());
    }
    return results;
}

void ProjectResults::TakeLoss(const std::string& why) {
    Ended = false;
    Passed = false;
    WhyIncomplete = why;
}

std::string ProjectResults::WhyNoVerdict() const {
    return "the results of '" + modConsole::ShownPath(Filename) +
           "' are incomplete and have no verdict: " + Reason(*this);
}

std::string ProjectResults::Describe() const {
    std::string text = modTerminalText::Harmless(modConsole::ShownPath(Filename)) + "\n";
    text += "  " + modFigureText::Counted(Files, "file", "files") + ", " +
            modFigureText::Counted(Lines, "line", "lines") + "\n";
    text += "  Violations  " + DescribeViolations(Violations) + "\n";
    for (const Finding& finding : Worst) {
        text += DescribeFinding(finding);
    }
    const std::int32_t hidden =
        Violations.TotalViolations() - static_cast<std::int32_t>(Worst.size());
    if (hidden > 0) {
        text += "    and " + modFigureText::Grouped(hidden) + " more\n";
    }
    text += DescribeVerdict(*this);
    return text + "  Results     " + modTerminalText::Harmless(modConsole::ShownPath(ResultsFile)) +
           "\n";
}

void ProjectResults::WriteTo(JsonOutput& json) const {
    json.BeginObject();
    json.Text("database", modConsole::ShownPath(ResultsFile));
    json.Text("project", Name);
    json.Text("projectFile", modConsole::ShownPath(Filename));
    json.Flag("ended", Ended);
    json.Number("files", Files);
    json.Number("lines", Lines);
    WriteViolations(Violations, json);
    json.Number("unfinishedFiles", UnfinishedFiles);
    if (Ended) {
        json.Flag("passed", Passed);
    } else {
        json.Null("passed");
    }
    json.BeginArray("failedMeasures");
    for (const std::string& measure : FailedMeasures) {
        json.Text(measure);
    }
    json.EndArray();
    json.BeginArray("worst");
    for (const Finding& finding : Worst) {
        WriteFinding(finding, json);
    }
    json.EndArray();
    json.EndObject();
}

}  // namespace dorvik
