#include "CommandLine.h"

#include "cli/commands/events/EventsCommand.h"
#include "cli/commands/report/ReportCommand.h"
#include "cli/commands/results/ResultsCommands.h"
#include "cli/commands/results/ToleranceLimits.h"
#include "cli/commands/review/ReviewCommand.h"
#include "cli/commands/rulebase/RuleAuthorCommands.h"
#include "cli/commands/script/ScriptCommands.h"
#include "cli/commands/session/SessionCommand.h"
#include "cli/commands/typelib/TypelibCommands.h"
#include "cli/output/Console.h"
#include "cli/output/ExitCode.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/modLog.h"
#include "platform/host/ScopedInstall.h"
#include "platform/host/modEncoding.h"
#include "platform/host/modHost.h"
#include "settings/RegistryUtils.h"
#include "settings/SettingsFile.h"
#include "settings/modGlobal.h"

#include <CLI/CLI.hpp>
#include <cstdint>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

namespace dorvik {

namespace {

/// The facts of the installation, for the length of one command.
class InstalledFacts {
public:
    InstalledFacts() {
        // A machine without such a file has the defaults. The user's settings are those of the work bench: a review in
        // a build must not depend on who runs it.
        if (m_facts.Exists()) {
            RegistryUtils::Install(RegistryRoot::LocalMachine, &m_facts);
        }
    }
    ~InstalledFacts() { RegistryUtils::Install(RegistryRoot::LocalMachine, nullptr); }
    InstalledFacts(const InstalledFacts&) = delete;
    InstalledFacts& operator=(const InstalledFacts&) = delete;

private:
    SettingsFile m_facts{SettingsFile::MachinePath()};
};

/// The process-wide objects of the engine, for the length of one command.
class GlobalObjects {
public:
    GlobalObjects() {
        modGlobal::CreateGlobalObjects();
        // No one is there to answer a box; the log still gets its lines.
        modLog::Log().SetQuiet(true);
    }
    ~GlobalObjects() { modGlobal::DestroyGlobalObjects(); }
    GlobalObjects(const GlobalObjects&) = delete;
    GlobalObjects& operator=(const GlobalObjects&) = delete;

private:
    InstalledFacts m_facts;
};

std::string CheckCodePage(const std::string& text) {
    const bool known = !text.empty() && text.size() < 6 &&
                       text.find_first_not_of("0123456789") == std::string::npos &&
                       modEncoding::IsKnownCodePage(std::stoi(text));
    return known ? std::string() : "unknown code page '" + text + "'";
}

void AddCodePage(CLI::App& command, int& codePage) {
    command.add_option("--code-page", codePage, "For files without a byte order mark (1252)")
        ->type_name("NUMBER")
        ->check(CheckCodePage);
}

// The texts fit a terminal of 80 columns: at most 49 characters after the column of names.

/// Left out of the help: it serves comparisons with results of older versions.
void AddKeepKnownFaults(CLI::App& command, bool& keep) {
    command.add_flag("--keep-known-faults", keep)->group("");
}

void AddReportStyle(CLI::App& command, std::string& style) {
    command.add_option("--report-style", style, "'modern' adds an interactive page (classic)")
        ->type_name("NAME")
        ->check(CLI::IsMember({ReportOptions::kClassic, ReportOptions::kModern}).description(""));
}

void AddReports(CLI::App& review, ReportOptions& options) {
    CLI::Option* const detail =
        review.add_option("--report", options.Detail, "Pages: none, summary or detailed (none)")
            ->type_name("NAME")
            ->check(CLI::IsMember(
                        {ReportOptions::kNone, ReportOptions::kSummary, ReportOptions::kDetailed})
                        .description(""));
    review.add_option("--reports", options.Folder, "Folder for the pages (where the results are)")
        ->type_name("FOLDER")
        ->needs(detail);
    AddReportStyle(review, options.Style);
    review.get_option("--report-style")->needs(detail);
    review.add_option("--batch-title", options.BatchTitle, "Title of the page of all projects")
        ->type_name("TEXT")
        ->needs(detail);
}

void AddReport(
    CLI::App& app,
    ReportCommandOptions& options,
    std::string& style,
    std::function<ExitCode()>& chosen) {
    CLI::App& report =
        *app.add_subcommand("report", "Write reports from finished results databases");
    report.add_option("DATABASE", options.Databases, "Results databases of finished reviews")
        ->required()
        ->type_name("");
    report.add_flag("--detailed", options.Detailed, "Also a page for each source file");
    report.add_option("--reports", options.Folder, "Folder for the pages (beside each database)")
        ->type_name("FOLDER");
    AddReportStyle(report, style);
    report.add_flag("--quiet", options.Quiet, "Print only errors");
    report.callback([&] {
        options.Modern = style == ReportOptions::kModern;
        chosen = [&options] {
            return RunReport(options);
        };
    });
}

void AddReview(CLI::App& app, ReviewOptions& options, std::function<ExitCode()>& chosen) {
    CLI::App& review = *app.add_subcommand("review", "Review projects against a rulebase");
    review.add_option("PATH", options.Paths, "Project files, project groups, folders to search")
        ->required()
        ->type_name("");
    review.add_option("--rulebase", options.RulebaseFile, "The rulebase (the sample rulebase)")
        ->type_name("FILE");
    review
        .add_option(
            "--results", options.ResultsFolder, "Results folder ('Dorvik' beside each project)")
        ->type_name("FOLDER");
    AddReports(review, options.Reports);
    review.add_flag("--clear-log", options.ClearLog, "Empty each project's review log first");
    review.add_option("--conventions", options.Conventions, "Kinds of rule: ac,ar,cc,nc,uk (all)")
        ->type_name("LIST")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->check(CLI::IsMember({"ac", "ar", "cc", "nc", "uk"}).description(""));
    review
        .add_option(
            "--severity", options.Severities, "Severities: 1 (critical) to 5 (information) (all)")
        ->type_name("LIST")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->check(CLI::Range(1, 5).description(""));
    review
        .add_option("--script-seconds", options.ScriptSeconds, "Seconds that a script may run (5)")
        ->type_name("NUMBER")
        ->check(CLI::Range(0.0, 2'000'000.0).description(""));
    review
        .add_option(
            "--script-instructions",
            options.ScriptInstructions,
            "Instructions that a script may run (50000000)")
        ->type_name("NUMBER")
        ->check(CLI::Range(std::int64_t{0}, std::int64_t{1'000'000'000'000}).description(""));
    review.add_flag(
        "--accept-faults", options.AcceptFaults, "Review with the readable part of a rulebase");
    review.add_flag("--rule-times", options.RuleTimes, "Show which scripts took the most time");
    review.add_option("--tolerance", options.Tolerances, "Set (CVC=0) or clear (CVC=none) a limit")
        ->type_name("NAME=N")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->check(modToleranceLimits::Check);
    review
        .add_option(
            "--type-libraries", options.TypeLibraries, "Folders with type libraries (repeatable)")
        ->type_name("DIR")
        ->allow_extra_args(false);
    AddCodePage(review, options.CodePage);
    AddKeepKnownFaults(review, options.KeepKnownFaults);
    review.add_flag("--progress", options.Progress, "Show progress even without a terminal");
    review.add_flag("--quiet", options.Quiet, "Print only errors");
    review.callback([&] {
        chosen = [&options] {
            return RunReview(options);
        };
    });
}

void AddEvents(CLI::App& app, EventsOptions& options, std::function<ExitCode()>& chosen) {
    CLI::App& events = *app.add_subcommand("events", "Print what the parser sees, as JSON");
    events.add_option("PROJECT", options.Path, "The project file")->required()->type_name("");
    AddCodePage(events, options.CodePage);
    AddKeepKnownFaults(events, options.KeepKnownFaults);
    events.callback([&] {
        chosen = [&options] {
            return RunEvents(options);
        };
    });
}

/// The work bench of a session takes the process-wide objects itself, when it is started.
void AddSession(CLI::App& app, std::string& script, std::function<ExitCode()>& chosenBench) {
    CLI::App& session = *app.add_subcommand("session", "Play a work bench session from a script");
    session.add_option("FILE", script, "The script; - is standard input")
        ->required()
        ->type_name("");
    session.callback([&] {
        chosenBench = [&script] {
            return RunSession(script);
        };
    });
}

ExitCode RunBench(const std::function<ExitCode()>& chosenBench) {
    const InstalledFacts facts;
    return chosenBench();
}

ExitCode RunChosen(const std::function<ExitCode()>& chosen) {
    const GlobalObjects globals;
    ConsoleMessageBox messageBox;
    const ScopedInstall<IMessageBox> installed(messageBox);
    return chosen();
}

const CLI::App* FindCommand(const CLI::App& app, const std::string& name) {
    const std::vector<const CLI::App*> found =
        app.get_subcommands([&](const CLI::App* known) { return known->check_name(name); });
    return found.empty() ? nullptr : found.front();
}

/// The words that a command takes before the command within it.
std::vector<const CLI::Option*> Positionals(const CLI::App& app) {
    return app.get_options([](const CLI::Option* option) { return option->get_positional(); });
}

/// The commands that the user names, as far as they are commands.
struct NamedCommand {
    std::string Path = "dorvik";
    std::string Wrong;  // the word after them that should be a command and is none
};

NamedCommand ReadCommand(const CLI::App& app, int argc, char** argv) {
    NamedCommand named;
    const CLI::App* within = &app;
    std::vector<const CLI::Option*> positionals = Positionals(app);
    for (int index = 1; index < argc; ++index) {
        const std::string word = argv[index];
        const bool hasCommands =
            !within->get_subcommands([](const CLI::App*) { return true; }).empty();
        if (!hasCommands || word.empty() || word.front() == '-') {
            break;
        }
        if (!positionals.empty()) {
            named.Path += " " + positionals.front()->get_name(/*positional=*/true);
            positionals.erase(positionals.begin());
            continue;
        }
        const CLI::App* const command = FindCommand(*within, word);
        if (command == nullptr) {
            named.Wrong = word;
            break;
        }
        within = command;
        positionals = Positionals(*within);
        named.Path += " " + word;
    }
    return named;
}

ExitCode ReportWrongUse(const NamedCommand& named, const std::string& sentence) {
    modConsole::PrintError(sentence + " (see '" + named.Path + " --help')");
    return ExitCode::NothingDone;
}

/// A command whose output was lost has failed, whatever its exit code.
ExitCode AfterOutput(ExitCode code) {
    const std::string failure = modConsole::OutputFailure();
    if (failure.empty()) {
        return code;
    }
    modConsole::PrintError("cannot write to standard output: " + failure);
    return ExitCode::NothingDone;
}

}  // namespace

int RunCommandLine(int argc, char** argv) {
    CLI::App app("Reviews Visual Basic 6 projects against a written coding standard.", "dorvik");
    app.require_subcommand(1);
    app.set_version_flag("--version", "dorvik " DORVIK_VERSION);
    std::function<ExitCode()> chosen;
    ReviewOptions review;
    EventsOptions events;
    ReportCommandOptions report;
    std::string reportStyle = ReportOptions::kClassic;
    RuleAuthorCommands ruleAuthor;
    ResultsCommands results;
    ScriptCommands scripts;
    TypelibCommands typelib;
    AddReview(app, review, chosen);
    results.AddTo(app, chosen);
    AddReport(app, report, reportStyle, chosen);
    AddEvents(app, events, chosen);
    ruleAuthor.AddTo(app, chosen);
    scripts.AddTo(app, chosen);
    typelib.AddTo(app, chosen);
    std::function<ExitCode()> chosenBench;
    std::string sessionScript;
    AddSession(app, sessionScript, chosenBench);
    const NamedCommand named = ReadCommand(app, argc, argv);
    if (!named.Wrong.empty()) {
        const bool atTop = named.Path == app.get_name();
        return static_cast<int>(ReportWrongUse(
            named,
            "unknown command '" + named.Wrong + "'" + (atTop ? "" : " of '" + named.Path + "'")));
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& help) {
        std::ostringstream text;
        app.exit(help, text, text);
        modConsole::Print(text.str());
        return static_cast<int>(AfterOutput(ExitCode::Passed));
    } catch (const CLI::ParseError& error) {
        return static_cast<int>(ReportWrongUse(named, error.what()));
    }
    return static_cast<int>(AfterOutput(chosenBench ? RunBench(chosenBench) : RunChosen(chosen)));
}

}  // namespace dorvik
