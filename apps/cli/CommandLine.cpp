#include "cli/CommandLine.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <string>

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

void AddCodePage(CLI::App& command, int& codePage) {
    command
        .add_option(
            "--code-page",
            codePage,
            "Code page of files without a byte order mark (1252 unless given)")
        ->type_name("NUMBER")
        ->check([](const std::string& text) {
            const bool known = !text.empty() && text.size() < 6 &&
                               text.find_first_not_of("0123456789") == std::string::npos &&
                               modEncoding::IsKnownCodePage(std::stoi(text));
            return known ? std::string() : "'" + text + "' is no code page that dorvik knows";
        });
}

void AddReview(CLI::App& app, ReviewOptions& options) {
    CLI::App& review = *app.add_subcommand("review", "Review projects against a rulebase");
    review.add_option("PATH", options.Paths, "Project files, project groups, or folders to search for project files")
        ->required();
    review.add_option("--rulebase", options.RulebaseFile, "The rulebase file (the sample rulebase unless given)")
        ->type_name("FILE");
    review.add_option("--results", options.ResultsFolder, "Folder for results (a folder 'Dorvik' beside each project unless given)")
        ->type_name("DIR");
    review.add_flag("--clear-log", options.ClearLog, "Empty the review log of each project first");
    review.add_option("--conventions", options.Conventions, "Kinds of rule to apply, of ac, ar, cc, nc, uk (all unless given)")
        ->type_name("LIST")
        ->delimiter(',')
        ->check(CLI::IsMember({"ac", "ar", "cc", "nc", "uk"}));
    review.add_option("--severity", options.Severities, "Severities to report, of 1 to 5 (all unless given)")
        ->type_name("LIST")
        ->delimiter(',')
        ->check(CLI::Range(1, 5));
    AddCodePage(review, options.CodePage);
    review.add_flag("--progress", options.Progress, "Show progress even where standard error is no terminal");
    review.add_flag("--quiet", options.Quiet, "Print nothing but errors");
}

void AddEvents(CLI::App& app, EventsOptions& options) {
    CLI::App& events = *app.add_subcommand("events", "Print what the parser sees: one JSON object for each event");
    events.add_option("PROJECT", options.Path, "The project file")->required();
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
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& help) {
        return app.exit(help);
    } catch (const CLI::ParseError& error) {
        modConsole::PrintError(std::string(error.what()) + " (see dorvik --help)");
        return static_cast<int>(ExitCode::NothingDone);
    }
    return static_cast<int>(RunChosen(app, review, events));
}

}  // namespace dorvik
