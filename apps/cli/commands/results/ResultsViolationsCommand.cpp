#include "cli/commands/results/ResultsViolationsCommand.h"

#include "ListedViolations.h"
#include "base/modText.h"
#include "cli/commands/results/ResultsFile.h"
#include "cli/output/Console.h"
#include "cli/output/SeverityNames.h"
#include "cli/output/TablePrinter.h"
#include "results/ResultsDB.h"

#include <cstdio>
#include <optional>

namespace dorvik {

namespace {

constexpr std::size_t kFactIndent = 2;
constexpr std::int32_t kControlLocation = 5;

void ReportUnknown(const std::string& what, const std::string& name) {
    modConsole::PrintError("the results have no " + what + " '" + name + "'");
}

/// Nothing, and a sentence, if the user names a file or a procedure that is not there.
std::optional<ListedScope>
FindScope(const ResultsViolationsOptions& options, const ResultsItems& items) {
    ListedScope scope;
    scope.WithCompleted = options.IncludeCompleted;
    if (!options.File.empty()) {
        scope.Files = items.FilesNamed(options.File);
        if (scope.Files.empty()) {
            ReportUnknown("file", options.File);
            return std::nullopt;
        }
    }
    if (!options.Procedure.empty()) {
        std::set<std::int32_t> within = scope.Files;
        if (within.empty()) {
            for (const auto& [id, file] : items.Files()) {
                within.insert(id);
            }
        }
        scope.Procedures = items.ProceduresNamed(options.Procedure, within);
        scope.Files.clear();
        if (scope.Procedures.empty()) {
            ReportUnknown("procedure", options.Procedure);
            return std::nullopt;
        }
    }
    return scope;
}

std::string TitleOf(const ListedViolation& violation) {
    return violation.Facts.Title + (violation.Facts.Completed ? " (completed)" : "");
}

Shade ShadeOf(const ListedViolation& violation) {
    return violation.Facts.Completed ? Shade::Dim
                                     : modSeverityNames::ShadeOf(violation.Facts.Severity);
}

void PrintTable(const ListedViolations& violations) {
    TablePrinter table(
        {{"ID", true}, {"Severity"}, {"Place", false, true}, {"Title", false, true}});
    for (const ListedViolation& violation : violations.Rows()) {
        const Shade shade = ShadeOf(violation);
        const Shade rest = violation.Facts.Completed ? Shade::Dim : Shade::Plain;
        table.AddRow(
            {{std::to_string(violation.ID), rest},
             {violation.Severity, shade},
             {violation.Place(), rest},
             {TitleOf(violation), rest}});
    }
    table.Print();
}

std::string RuleText(const Violation& facts) {
    const std::string kind(modRuleKinds::Key(facts.RuleType));
    if (facts.RuleID <= 0) {
        return kind;
    }
    char number[16];
    std::snprintf(number, sizeof number, "[%04d] ", facts.RuleID);
    return number + kind;
}

void PrintFacts(const ListedViolation& violation) {
    const Violation& facts = violation.Facts;
    TablePrinter table({{""}, {"", false, true}});
    table.SetIndent(kFactIndent);
    const auto add = [&table](const char* label, const std::string& text) {
        if (!text.empty()) {
            table.AddRow({{label, Shade::Dim}, {text}});
        }
    };
    add("Procedure", violation.Procedure);
    add("Source line", std::string(modText::TrimLeft(facts.SourceLine)));
    add("Control", facts.Location == kControlLocation ? facts.LocationMember : "");
    add("Description", facts.Description);
    add("Advice", facts.Advice);
    add("Rule", RuleText(facts));
    add("Category", violation.Category);
    add("Impact", std::to_string(facts.Impact));
    table.Print();
}

void PrintLong(const ListedViolations& violations) {
    const bool coloured = modConsole::OutputIsColoured();
    bool first = true;
    for (const ListedViolation& violation : violations.Rows()) {
        const std::string head = std::to_string(violation.ID) + "  " + violation.Severity + "  " +
                                 violation.Place() + "  " + TitleOf(violation);
        modConsole::Print(first ? "" : "\n");
        first = false;
        for (const std::string& line : modTerminalText::Wrap(head, modConsole::OutputWidth())) {
            modConsole::Print(modTerminalText::Shaded(line, ShadeOf(violation), coloured) + "\n");
        }
        PrintFacts(violation);
    }
}

ResultsRecords RecordsOf(const ListedViolations& violations) {
    ResultsRecords records(
        {"id",
         "severity",
         "severityTitle",
         "file",
         "path",
         "line",
         "procedure",
         "member",
         "title",
         "impact",
         "rule",
         "kind",
         "category",
         "categoryTitle",
         "description",
         "advice",
         "sourceLine",
         "completed"});
    for (const ListedViolation& violation : violations.Rows()) {
        const Violation& facts = violation.Facts;
        const bool hasLine = facts.SourceLineNumber > 0;
        records.Add(
            {violation.ID,
             facts.Severity,
             violation.Severity,
             violation.File->Filename,
             violation.File->ShownPath,
             hasLine ? RecordValue(facts.SourceLineNumber) : RecordValue(),
             violation.Procedure,
             facts.LocationMember,
             facts.Title,
             static_cast<std::int32_t>(facts.Impact),
             facts.RuleID,
             std::string(modRuleKinds::Key(facts.RuleType)),
             facts.CategoryID,
             violation.Category,
             facts.Description,
             facts.Advice,
             facts.SourceLine,
             facts.Completed});
    }
    return records;
}

void Print(
    const ListedViolations& violations,
    const ResultsViolationsOptions& options,
    ResultsDB& database) {
    if (options.Form.Json) {
        RecordsOf(violations).PrintAsJson(database, "violations");
    } else if (options.Form.Csv) {
        RecordsOf(violations).PrintAsCsv();
    } else if (violations.Rows().empty()) {
        modConsole::Print("No violations.\n");
    } else if (options.Long) {
        PrintLong(violations);
    } else {
        PrintTable(violations);
    }
}

}  // namespace

ExitCode
RunResultsViolations(const std::string& database, const ResultsViolationsOptions& options) {
    return modResultsFile::Read(database, [&](ResultsDB& results) {
        const ResultsItems items(results);
        const std::optional<ListedScope> scope = FindScope(options, items);
        if (!scope.has_value() || !ApplyResultsFilter(options.Filter, results)) {
            return ExitCode::NothingDone;
        }
        ListedViolations violations(results, items, *scope);
        violations.Sort(options.SortKey, options.Descending);
        Print(violations, options, results);
        return ExitCode::Passed;
    });
}

}  // namespace dorvik
