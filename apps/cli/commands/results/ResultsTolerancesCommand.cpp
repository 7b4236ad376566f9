#include "cli/commands/results/ResultsTolerancesCommand.h"

#include "cli/commands/results/ResultsFile.h"
#include "cli/commands/results/ResultsItems.h"
#include "cli/commands/results/ToleranceLimits.h"
#include "cli/output/Console.h"
#include "cli/output/FigureText.h"
#include "cli/output/JsonOutput.h"
#include "cli/output/TablePrinter.h"
#include "foundation/log/Trap.h"
#include "results/ResultsDB.h"
#include "results/UnfinishedFiles.h"
#include "results/modTolerances.h"

#include <algorithm>
#include <set>
#include <vector>

namespace dorvik {

namespace {

using modTolerances::kMeasures;

/// One measure of one file.
struct AssessedMeasure {
    std::int32_t SourceID = 0;
    std::string Filename;
    std::string Path;
    std::size_t Measure = 0;
    std::int32_t Actual = 0;
    std::int32_t Limit = 0;
    bool Passed = true;
};

std::string MeasureQuery() {
    std::string sql = "SELECT SourceID, Filename, Path";
    for (const auto& measure : kMeasures) {
        const std::string name(measure.Name);
        sql.append(", ").append(name);
        sql.append(", ").append(name).append("Limit, ").append(name).append("Pass");
    }
    return sql + " FROM SourceFiles";
}

/// The measures of all files that have a tolerance. The project file has two measures whatever the
/// tolerances are; without one they are left out.
std::vector<AssessedMeasure>
ReadMeasures(const ToleranceSettings& tolerances, ResultsDB& database) {
    std::vector<AssessedMeasure> result;
    Trap({"ResultsTolerancesCommand", "ReadMeasures"}, [&] {
        auto rows = database.OpenRecordSource(MeasureQuery());
        for (; rows && !rows->EOF_(); rows->MoveNext()) {
            for (std::size_t place = 0; place < kMeasures.size(); ++place) {
                const std::string name(kMeasures.at(place).Name);
                if (rows->Value(name + "Pass").IsEmpty() ||
                    modToleranceLimits::Limit(tolerances, place) == ToleranceSettings::kNotSet) {
                    continue;
                }
                AssessedMeasure& judged = result.emplace_back();
                judged.SourceID = rows->Value("SourceID").AsLong();
                judged.Filename = rows->Value("Filename").AsText();
                judged.Path = rows->Value("Path").AsText();
                judged.Measure = place;
                judged.Actual = rows->Value(name).AsLong();
                judged.Limit = rows->Value(name + "Limit").AsLong();
                judged.Passed = rows->Value(name + "Pass").AsLong() != 0;
            }
        }
    });
    return result;
}

std::int32_t FailedFiles(const std::vector<AssessedMeasure>& measures, std::size_t measure) {
    return static_cast<std::int32_t>(
        std::count_if(measures.begin(), measures.end(), [&](const AssessedMeasure& judged) {
            return judged.Measure == measure && !judged.Passed;
        }));
}

TableCell Verdict(bool passed) {
    return passed ? TableCell("passed", Shade::Good) : TableCell("failed", Shade::Bad);
}

/// Of a review that did not end no one knows whether the files that are not there would have passed.
bool HasEnded(ResultsDB& database) {
    return !database.Review().GetReviewData().End.IsZero();
}

void PrintTolerances(
    const ToleranceSettings& tolerances,
    const std::vector<AssessedMeasure>& measures,
    bool hasEnded) {
    TablePrinter table(
        {{"Measure"}, {"Description", false, true}, {"Limit"}, {"Failed in"}, {"Verdict"}});
    for (std::size_t place = 0; place < kMeasures.size(); ++place) {
        const std::int32_t limit = modToleranceLimits::Limit(tolerances, place);
        if (limit == ToleranceSettings::kNotSet) {
            continue;
        }
        const std::int32_t failed = FailedFiles(measures, place);
        table.AddRow(
            {kMeasures.at(place).Name,
             kMeasures.at(place).Description,
             modToleranceLimits::Words(place, limit),
             failed == 0 ? TableCell("none", Shade::Dim)
                         : TableCell(modFigureText::Counted(failed, "file", "files")),
             failed > 0 || hasEnded ? Verdict(failed == 0) : TableCell("none", Shade::Dim)});
    }
    if (table.RowCount() == 0) {
        modConsole::Print("No tolerance is set.\n");
        return;
    }
    table.Print();
}

void PrintFiles(const std::vector<AssessedMeasure>& measures, bool withPassed) {
    TablePrinter table(
        {{"Source file", false, true},
         {"Measure", false, true},
         {"Actual", true},
         {"Limit"},
         {"Verdict"}});
    for (const AssessedMeasure& judged : measures) {
        if (withPassed || !judged.Passed) {
            table.AddRow(
                {judged.Filename,
                 kMeasures.at(judged.Measure).Description,
                 modFigureText::Grouped(judged.Actual),
                 modToleranceLimits::Words(judged.Measure, judged.Limit),
                 Verdict(judged.Passed)});
        }
    }
    if (table.RowCount() > 0) {
        modConsole::Print("\n");
        table.Print();
    }
}

ResultsRecords FileRecords(const std::vector<AssessedMeasure>& measures) {
    ResultsRecords records({"file", "path", "measure", "description", "actual", "limit", "passed"});
    for (const AssessedMeasure& judged : measures) {
        const auto& measure = kMeasures.at(judged.Measure);
        records.Add(
            {judged.Filename,
             modConsole::ShownPath(ResultsItems::FullPath(judged.Path, judged.Filename)),
             std::string(measure.Name),
             std::string(measure.Description),
             judged.Actual,
             judged.Limit,
             judged.Passed});
    }
    return records;
}

void PrintAsJson(
    const ToleranceSettings& tolerances,
    const std::vector<AssessedMeasure>& measures,
    ResultsDB& database) {
    ResultsRecords limits({"measure", "description", "limit", "failedFiles", "passed"});
    for (std::size_t place = 0; place < kMeasures.size(); ++place) {
        const std::int32_t limit = modToleranceLimits::Limit(tolerances, place);
        if (limit != ToleranceSettings::kNotSet) {
            const std::int32_t failed = FailedFiles(measures, place);
            limits.Add(
                {std::string(kMeasures.at(place).Name),
                 std::string(kMeasures.at(place).Description),
                 limit,
                 failed,
                 failed > 0 || HasEnded(database) ? RecordValue(failed == 0) : RecordValue()});
        }
    }
    JsonOutput json;
    json.BeginObject();
    WriteResultsHead(json, database);
    if (HasEnded(database)) {
        json.Flag(
            "passed",
            database.Verdict().TolerancePass(ItemType::Project, 0) &&
                UnfinishedFiles::ReadFrom(database).Count() == 0);
    } else {
        json.Null("passed");
    }
    limits.WriteTo(json, "tolerances");
    FileRecords(measures).WriteTo(json, "files");
    json.EndObject();
    json.Print();
}

}  // namespace

ExitCode
RunResultsTolerances(const std::string& database, const ResultsTolerancesOptions& options) {
    return modResultsFile::Read(database, [&](ResultsDB& results) {
        const ToleranceSettings tolerances = results.Review().GetReviewCriteria().Tolerances;
        std::vector<AssessedMeasure> measures = ReadMeasures(tolerances, results);
        if (!options.File.empty()) {
            const std::set<std::int32_t> wanted = ResultsItems(results).FilesNamed(options.File);
            if (wanted.empty()) {
                modConsole::PrintError("the results have no file '" + options.File + "'");
                return ExitCode::NothingDone;
            }
            std::erase_if(measures, [&](const AssessedMeasure& judged) {
                return !wanted.contains(judged.SourceID);
            });
        }
        if (options.Form.Json) {
            PrintAsJson(tolerances, measures, results);
        } else if (options.Form.Csv) {
            FileRecords(measures).PrintAsCsv();
        } else {
            PrintTolerances(tolerances, measures, HasEnded(results));
            PrintFiles(measures, !options.File.empty());
        }
        return ExitCode::Passed;
    });
}

}  // namespace dorvik
