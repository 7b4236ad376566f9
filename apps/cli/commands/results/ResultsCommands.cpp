#include "cli/commands/results/ResultsCommands.h"

#include "HotspotList.h"
#include "ListedViolations.h"
#include "ResultsCompleteCommand.h"
#include "ResultsCriteriaCommand.h"
#include "ResultsSummaryCommand.h"

#include <CLI/CLI.hpp>
#include <memory>

namespace dorvik {

namespace {

constexpr const char* kResults = "results";

/// Help texts that name the database, which comes between the two words of a command.
class UsageWithDatabase final : public CLI::Formatter {
public:
    std::string make_usage(const CLI::App* app, std::string name) const override {
        const std::string own = app->get_name();
        const bool isWithin = own != kResults && name.ends_with(own);
        return CLI::Formatter::make_usage(
            app, isWithin ? name.insert(name.size() - own.size(), "DATABASE ") : name);
    }
};

// The texts fit a terminal of 80 columns: at most 49 characters after the column of names.

constexpr std::size_t kHelpWidth = 48;

void AddForm(CLI::App& command, ResultsForm& form) {
    CLI::Option* const json = command.add_flag("--json", form.Json, "Print JSON");
    command.add_flag("--csv", form.Csv, "Print comma-separated values")->excludes(json);
}

void AddFilter(CLI::App& command, ResultsFilterOptions& filter) {
    command.add_option("--severity", filter.Severities, "Only these: 1 or critical to 5 or info")
        ->type_name("LIST")
        ->delimiter(',')
        ->allow_extra_args(false);
    command
        .add_option(
            "--kind",
            filter.Kinds,
            "Only these kinds: component,reference,keyword,\n"
            "coding,naming,documentation")
        ->type_name("LIST")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->check(CLI::IsMember(modRuleKinds::Keys()).description(""));
    command
        .add_option("--category", filter.Categories, "Only this title or ID, or 'none'; repeatable")
        ->type_name("NAME")
        ->allow_extra_args(false);
}

void AddSort(
    CLI::App& command, const std::vector<std::string>& keys, std::string& key, bool& descending) {
    std::string text;
    for (const std::string& known : keys) {
        text += text.empty() ? "By " : ",";
        text += text.size() - (text.rfind('\n') + 1) + known.size() > kHelpWidth ? "\n" : "";
        text += known;
    }
    command.add_option("--sort", key, text)
        ->type_name("KEY")
        ->check(CLI::IsMember(keys).description(""));
    command.add_flag("--descending", descending, "Reverse that order");
}

}  // namespace

void ResultsCommands::AddTo(CLI::App& app, std::function<ExitCode()>& chosen) {
    CLI::App& results = *app.add_subcommand(kResults, "Show what a review stored, and mark it");
    results.formatter(std::make_shared<UsageWithDatabase>());
    results.add_option("DATABASE", m_database, "The results database of a project")
        ->required()
        ->type_name("");
    results.require_subcommand(1);
    AddOverviews(results, chosen);
    AddHotspots(results, chosen);
    AddViolations(results, chosen);
    AddMarks(results, chosen);
}

void ResultsCommands::AddOverviews(CLI::App& results, std::function<ExitCode()>& chosen) {
    CLI::App& summary = *results.add_subcommand("summary", "Figures, worst findings and verdict");
    AddForm(summary, m_form);
    summary.callback([&] {
        chosen = [this] {
            return RunResultsSummary(m_database, m_form);
        };
    });

    CLI::App& criteria =
        *results.add_subcommand("criteria", "Rulebase, reviewer, times, selection");
    AddForm(criteria, m_form);
    criteria.callback([&] {
        chosen = [this] {
            return RunResultsCriteria(m_database, m_form);
        };
    });

    CLI::App& tolerances =
        *results.add_subcommand("tolerances", "The limits, and what exceeds them");
    tolerances.add_option("--file", m_tolerances.File, "All measures of this file")
        ->type_name("NAME");
    AddForm(tolerances, m_tolerances.Form);
    tolerances.callback([&] {
        chosen = [this] {
            return RunResultsTolerances(m_database, m_tolerances);
        };
    });
}

void ResultsCommands::AddHotspots(CLI::App& results, std::function<ExitCode()>& chosen) {
    CLI::App& files = *results.add_subcommand("files", "The source files with their figures");
    AddFilter(files, m_files.Filter);
    AddSort(files, HotspotList::SortKeys(), m_files.SortKey, m_files.Descending);
    AddForm(files, m_files.Form);
    files.callback([&] {
        chosen = [this] {
            return RunResultsFiles(m_database, m_files);
        };
    });

    CLI::App& procedures =
        *results.add_subcommand("procedures", "The procedures with their figures");
    procedures.add_option("FILE", m_procedures.File, "Only those of this file (all)")
        ->type_name("");
    AddFilter(procedures, m_procedures.Filter);
    AddSort(procedures, HotspotList::SortKeys(), m_procedures.SortKey, m_procedures.Descending);
    AddForm(procedures, m_procedures.Form);
    procedures.callback([&] {
        chosen = [this] {
            return RunResultsProcedures(m_database, m_procedures);
        };
    });
}

void ResultsCommands::AddViolations(CLI::App& results, std::function<ExitCode()>& chosen) {
    CLI::App& violations = *results.add_subcommand("violations", "The violations, worst first");
    AddFilter(violations, m_violations.Filter);
    violations.add_option("--file", m_violations.File, "Only those of this file")
        ->type_name("NAME");
    violations.add_option("--procedure", m_violations.Procedure, "Only those of this procedure")
        ->type_name("NAME");
    violations.add_flag(
        "--include-completed", m_violations.IncludeCompleted, "Also those marked as completed");
    AddSort(
        violations, ListedViolations::SortKeys(), m_violations.SortKey, m_violations.Descending);
    violations.add_flag("--long", m_violations.Long, "All texts of each violation");
    AddForm(violations, m_violations.Form);
    violations.callback([&] {
        chosen = [this] {
            return RunResultsViolations(m_database, m_violations);
        };
    });
}

void ResultsCommands::AddMarks(CLI::App& results, std::function<ExitCode()>& chosen) {
    struct Mark {
        const char* Name;
        const char* Description;
        bool Completed;
    };
    constexpr Mark kMarks[] = {
        {"complete", "Mark violations as completed", true},
        {"reopen", "Remove that mark", false},
    };
    for (const Mark& mark : kMarks) {
        CLI::App& command = *results.add_subcommand(mark.Name, mark.Description);
        command.add_option("ID", m_ids, "IDs of violations, as 'violations' shows them")
            ->required()
            ->type_name("");
        command.callback([this, &chosen, completed = mark.Completed] {
            chosen = [this, completed] {
                return RunResultsComplete(m_database, m_ids, completed);
            };
        });
    }
}

}  // namespace dorvik
