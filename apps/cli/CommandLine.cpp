#include "cli/CommandLine.h"

#include "cli/Console.h"
#include "cli/EventsCommand.h"
#include "cli/ExitCode.h"
#include "cli/ReviewCommand.h"
#include "foundation/LogFile.h"
#include "foundation/modLog.h"
#include "platform/ScopedInstall.h"
#include "platform/modEncoding.h"
#include "platform/modHost.h"
#include "settings/modGlobal.h"

#include <CLI/CLI.hpp>
#include <functional>
#include <string>
#include <string_view>

namespace dorvik {

namespace {

/// The process-wide objects of the engine, for the length of one command.
class GlobalObjects {
public:
    GlobalObjects() {
        modGlobal::CreateGlobalObjects();
        // Nobody is there to answer a box; the log still gets its lines.
        modLog::Log().SetQuiet(true);
    }
    ~GlobalObjects() { modGlobal::DestroyGlobalObjects(); }
    GlobalObjects(const GlobalObjects&) = delete;
    GlobalObjects& operator=(const GlobalObjects&) = delete;
};

std::string CheckCodePage(const std::string& text) {
    const bool known = !text.empty() && text.size() < 6 &&
                       text.find_first_not_of("0123456789") == std::string::npos &&
                       modEncoding::IsKnownCodePage(std::stoi(text));
    return known ? std::string() : "'" + text + "' is no code page that dorvik knows";
}

void AddCodePage(CLI::App& command, int& codePage) {
    command.add_option("--code-page", codePage, "Of files without a byte order mark (1252)")
        ->type_name("NUMBER")
        ->check(CheckCodePage);
}

// The texts fit a terminal of 80 columns: at most 49 characters behind the column of names.
void AddReview(CLI::App& app, ReviewOptions& options) {
    CLI::App& review = *app.add_subcommand("review", "Review projects against a rulebase");
    review.add_option("PATH", options.Paths, "Project files, project groups, folders to search")
        ->required()
        ->type_name("");
    review.add_option("--rulebase", options.RulebaseFile, "The rulebase (the sample rulebase)")
        ->type_name("FILE");
    review
        .add_option(
            "--results", options.ResultsFolder, "For results ('Dorvik' beside each project)")
        ->type_name("FOLDER");
    review.add_flag("--clear-log", options.ClearLog, "Empty each project's review log first");
    review.add_option("--conventions", options.Conventions, "Kinds of rule: ac,ar,cc,nc,uk (all)")
        ->type_name("LIST")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->check(CLI::IsMember({"ac", "ar", "cc", "nc", "uk"}).description(""));
    review.add_option("--severity", options.Severities, "1 (critical) to 5 (information) (all)")
        ->type_name("LIST")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->check(CLI::Range(1, 5).description(""));
    AddCodePage(review, options.CodePage);
    review.add_flag("--progress", options.Progress, "Show progress also without a terminal");
    review.add_flag("--quiet", options.Quiet, "Print nothing but errors");
}

void AddEvents(CLI::App& app, EventsOptions& options) {
    CLI::App& events = *app.add_subcommand("events", "Print what the parser sees, as JSON");
    events.add_option("PROJECT", options.Path, "The project file")->required()->type_name("");
    AddCodePage(events, options.CodePage);
}

ExitCode RunChosen(const CLI::App& app, const ReviewOptions& review, const EventsOptions& events) {
    const GlobalObjects globals;
    ConsoleMessageBox messageBox;
    const ScopedInstall<IMessageBox> installed(messageBox);
    return app.got_subcommand("review") ? RunReview(review) : RunEvents(events);
}

}  // namespace

int RunCommandLine(int argc, char** argv) {
    CLI::App app("Reviews Visual Basic 6 projects against a written coding standard.", "dorvik");
    app.require_subcommand(1);
    app.set_version_flag("--version", "dorvik " DORVIK_VERSION);
    ReviewOptions review;
    EventsOptions events;
    AddReview(app, review);
    AddEvents(app, events);
    const std::string_view command = argc > 1 ? argv[1] : "";
    if (!command.empty() && command.front() != '-' &&
        app.get_subcommands(
               [&](const CLI::App* known) { return known->check_name(std::string(command)); })
            .empty()) {
        modConsole::PrintError(
            "'" + std::string(command) + "' is no command (see 'dorvik --help')");
        return static_cast<int>(ExitCode::NothingDone);
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& help) {
        return app.exit(help);
    } catch (const CLI::ParseError& error) {
        modConsole::PrintError(std::string(error.what()) + " (see 'dorvik --help')");
        return static_cast<int>(ExitCode::NothingDone);
    }
    return static_cast<int>(RunChosen(app, review, events));
}

}  // namespace dorvik
