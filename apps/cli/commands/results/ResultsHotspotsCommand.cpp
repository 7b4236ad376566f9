#include "cli/commands/results/ResultsHotspotsCommand.h"

#include "HotspotList.h"
#include "cli/commands/results/ResultsFile.h"
#include "cli/commands/results/ResultsItems.h"
#include "cli/output/Console.h"
#include "cli/output/FigureText.h"
#include "cli/output/TablePrinter.h"
#include "results/ResultsDB.h"

namespace dorvik {

namespace {

// ---- figures that files and procedures have alike ----

void AddFigureColumns(std::vector<TableColumn>& columns) {
    for (const char* const title : {"Violations", "Impact", "Lines", "%Comments", "Complexity"}) {
        columns.push_back({title, /*AlignRight=*/true});
    }
}

TableCell Available(bool has, std::int32_t figure) {
    return has ? TableCell(modFigureText::Grouped(figure)) : TableCell("N/A", Shade::Dim);
}

void AddFigureCells(const Hotspot& hotspot, std::vector<TableCell>& cells) {
    const BasicObject& object = hotspot.Object;
    const bool hasLines = hotspot.Comments.has_value();
    cells.emplace_back(modFigureText::Grouped(object.ViolationCount));
    cells.emplace_back(modFigureText::Grouped(object.ViolationImpact));
    cells.push_back(Available(hasLines, object.SourceLines));
    cells.push_back(Available(hasLines, hotspot.Comments.value_or(0)));
    cells.push_back(Available(hotspot.HasComplexity, object.CyclomaticComplexity));
}

void AddFigureValues(const Hotspot& hotspot, std::vector<RecordValue>& values) {
    const BasicObject& object = hotspot.Object;
    const auto available = [](bool has, std::int32_t figure) {
        return has ? RecordValue(figure) : RecordValue();
    };
    const bool hasLines = hotspot.Comments.has_value();
    values.emplace_back(object.ViolationCount);
    values.emplace_back(object.ViolationImpact);
    values.push_back(available(hasLines, object.SourceLines));
    values.push_back(available(hasLines, hotspot.Comments.value_or(0)));
    values.push_back(available(hotspot.HasComplexity, object.CyclomaticComplexity));
}

std::string ShownPathOf(const BasicObject& object) {
    return modConsole::ShownPath(ResultsItems::FullPath(object.Path, object.Filename));
}

bool HasTolerance(ResultsDB& database) {
    const ToleranceSettings tolerances = database.Review().GetReviewCriteria().Tolerances;
    // The totals count here too, unlike in `VerdictReader::TolerancesSet`: a file can fail on them.
    constexpr std::int32_t kTotal = ToleranceSettings::kPlaces;
    return database.Verdict().TolerancesSet() ||
           tolerances.Count.Item(kTotal) != ToleranceSettings::kNotSet ||
           tolerances.Impact.Item(kTotal) != ToleranceSettings::kNotSet;
}

// ---- files ----

TableCell VerdictCell(const Hotspot& file, bool hasTolerance) {
    if (!file.Finished) {
        return {"not reviewed", Shade::Bad};
    }
    if (!hasTolerance) {
        return {"none", Shade::Dim};
    }
    return file.Passed ? TableCell("passed", Shade::Good) : TableCell("failed", Shade::Bad);
}

void PrintFileTable(const HotspotList& list, bool hasTolerance) {
    const bool withVerdict = hasTolerance || !list.AllFinished();
    std::vector<TableColumn> columns{{"Source file", false, true}};
    AddFigureColumns(columns);
    if (withVerdict) {
        columns.push_back({"Verdict"});
    }
    TablePrinter table(columns);
    for (const Hotspot& hotspot : list.Rows()) {
        std::vector<TableCell> cells{hotspot.Name};
        AddFigureCells(hotspot, cells);
        if (withVerdict) {
            cells.push_back(VerdictCell(hotspot, hasTolerance));
        }
        table.AddRow(cells);
    }
    table.Print();
}

ResultsRecords FileRecords(const HotspotList& list) {
    ResultsRecords records(
        {"id",
         "file",
         "name",
         "path",
         "type",
         "passed",
         "violations",
         "impact",
         "lines",
         "percentComments",
         "complexity"});
    for (const Hotspot& hotspot : list.Rows()) {
        const BasicObject& file = hotspot.Object;
        std::vector<RecordValue> values{
            file.ObjectID,
            file.Filename,
            file.Name,
            ShownPathOf(file),
            file.ObjectType,
            hotspot.Passed};
        AddFigureValues(hotspot, values);
        records.Add(std::move(values));
    }
    return records;
}

// ---- procedures ----

/// Procedures of several files are told apart by the name of the file, as a program writes them.
std::string QualifiedName(const Hotspot& hotspot) {
    return hotspot.File + (hotspot.Name.starts_with("(") ? " " : ".") + hotspot.Name;
}

void PrintProcedureTable(const HotspotList& list, bool ofOneFile) {
    std::vector<TableColumn> columns{{"Procedure", false, true}};
    AddFigureColumns(columns);
    TablePrinter table(columns);
    for (const Hotspot& hotspot : list.Rows()) {
        std::vector<TableCell> cells{ofOneFile ? hotspot.Name : QualifiedName(hotspot)};
        AddFigureCells(hotspot, cells);
        table.AddRow(cells);
    }
    table.Print();
}

ResultsRecords ProcedureRecords(const HotspotList& list) {
    ResultsRecords records(
        {"id",
         "file",
         "path",
         "procedure",
         "type",
         "scope",
         "violations",
         "impact",
         "lines",
         "percentComments",
         "complexity"});
    for (const Hotspot& hotspot : list.Rows()) {
        const BasicObject& procedure = hotspot.Object;
        std::vector<RecordValue> values{
            procedure.ObjectID,
            procedure.Filename,
            ShownPathOf(procedure),
            procedure.Name,
            procedure.ObjectType,
            procedure.Scope};
        AddFigureValues(hotspot, values);
        records.Add(std::move(values));
    }
    return records;
}

std::set<std::int32_t> WantedFiles(const std::string& name, const ResultsItems& items) {
    if (!name.empty()) {
        return items.FilesNamed(name);
    }
    std::set<std::int32_t> all;
    for (const auto& [id, file] : items.Files()) {
        all.insert(id);
    }
    return all;
}

}  // namespace

ExitCode RunResultsFiles(const std::string& database, const ResultsHotspotsOptions& options) {
    return modResultsFile::Read(database, [&](ResultsDB& results) {
        if (!ApplyResultsFilter(options.Filter, results)) {
            return ExitCode::NothingDone;
        }
        HotspotList list = HotspotList::OfFiles(results);
        list.Sort(options.SortKey, options.Descending);
        if (options.Form.Json) {
            FileRecords(list).PrintAsJson(results, "files");
        } else if (options.Form.Csv) {
            FileRecords(list).PrintAsCsv();
        } else {
            PrintFileTable(list, HasTolerance(results));
        }
        return ExitCode::Passed;
    });
}

ExitCode RunResultsProcedures(const std::string& database, const ResultsHotspotsOptions& options) {
    return modResultsFile::Read(database, [&](ResultsDB& results) {
        const ResultsItems items(results);
        const std::set<std::int32_t> files = WantedFiles(options.File, items);
        if (files.empty() && !options.File.empty()) {
            modConsole::PrintError("the results have no file '" + options.File + "'");
            return ExitCode::NothingDone;
        }
        if (!ApplyResultsFilter(options.Filter, results)) {
            return ExitCode::NothingDone;
        }
        HotspotList list;
        for (const std::int32_t file : files) {
            list.AddProceduresOf(items.Files().at(file), results);
        }
        list.Sort(options.SortKey, options.Descending);
        if (options.Form.Json) {
            ProcedureRecords(list).PrintAsJson(results, "procedures");
        } else if (options.Form.Csv) {
            ProcedureRecords(list).PrintAsCsv();
        } else if (list.Rows().empty()) {
            modConsole::Print("No procedures.\n");
        } else {
            PrintProcedureTable(list, files.size() == 1);
        }
        return ExitCode::Passed;
    });
}

}  // namespace dorvik
