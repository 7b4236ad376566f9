#include "cli/commands/review/ReviewCommand.h"

#include "ReviewReports.h"
#include "ReviewRulebase.h"
#include "ReviewSummary.h"
#include "base/modTextCase.h"
#include "cli/commands/results/ToleranceLimits.h"
#include "cli/commands/review/ProjectStatusText.h"
#include "cli/commands/typelib/TypeLibrarySettings.h"
#include "cli/output/Console.h"
#include "cli/output/Interrupt.h"
#include "cli/output/ProgressLine.h"
#include "cli/output/modCommandPath.h"
#include "criteria/ProgressInfo.h"
#include "criteria/ReviewCriteria.h"
#include "enforcement/RuleEngine.h"
#include "foundation/log/modLog.h"
#include "modRuleTimes.h"
#include "platform/host/modFiles.h"
#include "platform/host/modHostFolder.h"
#include "platform/host/modHostPath.h"
#include "results/modResultsFilename.h"
#include "review/ReviewManager.h"
#include "settings/DVKWorkData.h"
#include "settings/DorvikData.h"
#include "settings/modGlobal.h"
#include "source/ProjectFinder.h"
#include "source/Severity.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <unordered_map>

namespace dorvik {

namespace {

/// Steps between two looks at the interrupt flag; a step is about one source line.
constexpr std::int32_t kStepsASlice = 500;

constexpr std::string_view kConventions[] = {"ac", "ar", "cc", "nc", "uk"};

std::string RulebaseFile(const ReviewOptions& options) {
    return options.RulebaseFile.empty()
               ? modGlobal::WorkData().LastRulebase
               : modCommandPath::Inner(options.RulebaseFile, options.CodePage);
}

bool Wants(const ReviewOptions& options, const char* convention) {
    return options.Conventions.empty() ||
           std::find(options.Conventions.begin(), options.Conventions.end(), convention) !=
               options.Conventions.end();
}

void FillLoadCriteria(RulebaseLoadCriteria& load, const ReviewOptions& options) {
    load.SetRulebaseFile(RulebaseFile(options));
    load.SetAuthorisedComponents(Wants(options, "ac"));
    load.SetAuthorisedReferences(Wants(options, "ar"));
    load.SetCodingConventions(Wants(options, "cc"));
    load.SetNamingConventions(Wants(options, "nc"));
    load.SetUnauthorisedKeywords(Wants(options, "uk"));
    for (const Severity severity : kSeverities) {
        const std::int32_t level = NumberOf(severity);
        const auto& wanted = options.Severities;
        load.SetSeverityLevel(
            level,
            wanted.empty() || std::find(wanted.begin(), wanted.end(), level) != wanted.end());
    }
}

std::shared_ptr<ReviewCriteria> MakeCriteria(
    const ReviewOptions& options,
    const std::vector<std::string>& filenames,
    const std::string& resultsFolder) {
    auto criteria = std::make_shared<ReviewCriteria>();
    criteria->SetReviewType(ReviewType_Batch);
    criteria->SetClearLogBeforeReview(options.ClearLog);
    criteria->SetKeepsKnownFaults(options.KeepKnownFaults);
    criteria->SetUseProjectFolderResults(resultsFolder.empty());
    criteria->SetFixedFolderResults(resultsFolder);
    FillLoadCriteria(criteria->LoadCriteria(), options);
    for (const std::string& filename : filenames) {
        const auto project = std::make_shared<VirtualProject>(options.CodePage);
        project->SetFilename(filename);
        criteria->ProjectList().Add(filename, project, true, false);
    }
    return criteria;
}

/// Two projects of one name cannot share a results folder: the second would replace the first one's
/// results. Such projects are reported and skipped.
std::vector<std::string>
WithoutNameClashes(FoundProjects& found, const std::string& resultsFolder) {
    std::vector<std::string> kept;
    std::unordered_map<std::string, std::string> projects;  // by their results file
    for (const std::string& filename : found.Filenames) {
        const std::string results = modDorvikUtils::CreateResultsFilename(filename, resultsFolder);
        const auto [first, isNew] = projects.emplace(modTextCase::ToLower(results), filename);
        if (isNew) {
            kept.push_back(filename);
        } else {
            found.Errors.push_back(
                "'" + modConsole::ShownPath(filename) +
                "' is skipped, because its results would replace those of '" +
                modConsole::ShownPath(first->second) + "'; choose another folder for its results");
        }
    }
    return kept;
}

std::string Times(std::int64_t count) {
    return std::to_string(count) + (count == 1 ? " time" : " times");
}

/// Reports the rules that were stopped or disabled during the review. False if there were any.
bool ReportStoppedRules(const RuleFailures& failures) {
    for (const RuleFailures::RulePart& rule : failures.DisabledRules()) {
        modConsole::PrintError(
            rule.RuleName + " was disabled, because its " + std::string(rule.What) +
            " exceeded a limit " + Times(RuleFailures::kStopsUntilDisabled) +
            "; see the review log");
    }
    const auto stoppedRules = failures.StoppedRules();
    for (const RuleFailures::CountedPart& stopped : stoppedRules) {
        modConsole::PrintError(
            stopped.Part.RuleName + " is incomplete, because its " +
            std::string(stopped.Part.What) + " exceeded a limit " + Times(stopped.Count) +
            "; see the review log");
    }
    return failures.DisabledRules().empty() && stoppedRules.empty();
}

/// Reports the rules whose script or pattern failed. False if there were any.
bool ReportFailedRules(const RuleFailures& failures) {
    const auto failedRules = failures.FailedRules();
    for (const RuleFailures::CountedPart& failed : failedRules) {
        modConsole::PrintError(
            failed.Part.RuleName + " is incomplete, because its " + std::string(failed.Part.What) +
            " failed " + Times(failed.Count) + "; see the review log");
    }
    return failedRules.empty();
}

/// Reports the rules that did not run at each of their events. False if there were any.
bool ReportIncompleteRules(const RuleFailures& failures) {
    const bool isNoneStopped = ReportStoppedRules(failures);
    const bool isNoneFailed = ReportFailedRules(failures);
    return isNoneStopped && isNoneFailed;
}

/// Reports that lines are missing from the log.
void ReportUnwrittenLog() {
    std::string why = modLog::FirstUnwritten();
    if (why.empty()) {
        return;
    }
    // It ends in the path of the log, in the program's form.
    const std::size_t quote = why.find('\'');
    if (quote != std::string::npos && why.back() == '\'') {
        const std::string path = why.substr(quote + 1, why.size() - quote - 2);
        why.replace(quote + 1, path.size(), modConsole::ShownPath(path));
    }
    modConsole::PrintError("lines are missing from a log: " + why);
}

/// An option that takes a list, and how one value of it looks.
struct ListOption {
    std::string_view Name;
    std::string First;  // of the values that were given; empty if there are none
    bool (*IsValue)(const std::string& text);
};

bool IsConvention(const std::string& text) {
    return std::find(std::begin(kConventions), std::end(kConventions), text) !=
           std::end(kConventions);
}

bool IsSeverity(const std::string& text) {
    return text.size() == 1 && text.front() >= '1' && text.front() <= '5';
}

bool IsTolerance(const std::string& text) {
    return modToleranceLimits::Parse(text).has_value();
}

bool Exists(const std::string& path) {
    return modHostFolder::KindOf(modHostPath::FromUserRelative(path)) != FileKind::Nothing;
}

/// For a path that does not exist and is probably a further value of an option.
std::string
CommaAdvice(const std::string& path, const std::string& option, const std::string& firstValue) {
    return "'" + path + "' does not exist; to give several values to " + option +
           ", separate them with commas: " + option + " " + firstValue + "," + path;
}

/// In a list that is written with blanks between its values all but the first are taken for paths. What is wrong
/// with such a path, and how the list is written; empty if there is none.
std::string StrayValue(const ReviewOptions& options) {
    const ListOption lists[] = {
        {"--conventions",
         options.Conventions.empty() ? "" : options.Conventions.front(),
         &IsConvention},
        {"--severity",
         options.Severities.empty() ? "" : std::to_string(options.Severities.front()),
         &IsSeverity},
        {"--tolerance", options.Tolerances.empty() ? "" : options.Tolerances.front(), &IsTolerance},
    };
    for (const std::string& path : options.Paths) {
        for (const ListOption& list : lists) {
            if (!list.First.empty() && list.IsValue(path) && !Exists(path)) {
                return CommaAdvice(path, std::string(list.Name), list.First);
            }
        }
    }
    return {};
}

/// False, and a sentence, if the file is missing that every results database begins as.
bool HasTemplate() {
    const std::string& file = modGlobal::Data().ProjectResultsDB();
    if (modFiles::FileExists(file)) {
        return true;
    }
    modConsole::PrintError(
        "the template of the results databases '" + modConsole::ShownPath(file) +
        "' is missing; install dorvik again");
    return false;
}

/// Runs the review to its end, or until the user interrupts it.
SliceResult Drive(ReviewManager& manager, const ReviewOptions& options) {
    const Interrupt interrupt;
    ProgressLine line(!options.Quiet && (options.Progress || modConsole::ErrorIsTerminal()));
    manager.SetProgressHandler([&](const ProgressInfo& progress, bool& cancel) {
        line.Show(progress);
        if (interrupt.Requested()) {
            // A cancel of reports alone would let the next project replace its results.
            manager.Abandon();
            cancel = true;
        }
    });
    manager.RuleEngine().SetStopRequest([&interrupt] { return interrupt.Requested(); });
    auto result = SliceResult::Continue;
    while (result == SliceResult::Continue) {
        result = manager.ReviewTimeSlice(kStepsASlice);
    }
    manager.RuleEngine().SetStopRequest({});
    return result;
}

/// Reports what could not be reviewed. False if there was anything.
bool ReportFailures(
    ReviewCriteria& criteria, const ReviewSummary& summary, const ReviewReports& reports) {
    bool complete = summary.WithoutResults().empty() && summary.Incomplete().empty();
    for (const ReviewSummary::MissingResults& missing : summary.WithoutResults()) {
        modConsole::PrintError(
            "the project '" + modConsole::ShownPath(missing.ProjectFile) +
            "' was not reviewed, because its results could not be written to '" +
            modConsole::ShownPath(missing.ResultsFile) + "'" +
            (missing.Reason.empty() ? "" : ": " + missing.Reason));
    }
    for (const ProjectResults* const project : summary.Incomplete()) {
        modConsole::PrintError(project->WhyNoVerdict());
    }
    auto& projects = criteria.ProjectList();
    for (const auto& project : projects) {
        if (project->LoadStatus() != ProjectLoadStatus::Good) {
            modConsole::PrintError(ProjectStatusText(project->Filename(), *project));
            complete = false;
        }
        const bool isLossTold = project->Outcome().ResultsLost.Count > 0;
        for (const UnreviewedFile& file : project->Outcome().UnreviewedFiles) {
            complete = false;
            if (!file.IsStored && isLossTold) {
                continue;
            }
            modConsole::PrintError(SourceFileStatusText(file));
        }
        for (const CutLayout& layout : project->Outcome().CutLayouts) {
            modConsole::PrintError(CutLayoutText(layout.Filename, layout.Fault));
            complete = false;
        }
    }
    return reports.ReportFailures() && complete;
}

/// The limits of the rules' scripts; 0 means that there is none.
basic::ScriptLimits ScriptLimitsOf(const ReviewOptions& options) {
    basic::ScriptLimits limits;
    // Rounded up, so that a limit never becomes 0.
    limits.Milliseconds = static_cast<std::int32_t>(std::ceil(options.ScriptSeconds * 1000));
    if (options.ScriptInstructions) {
        limits.Instructions = *options.ScriptInstructions;
    } else if (options.ScriptSeconds == 0) {
        limits.Instructions = 0;
    }
    return limits;
}

/// A folder of the command line as the project names it; empty if none was given.
std::string ChosenFolder(const std::string& folder, int codePage) {
    return folder.empty() ? std::string() : modCommandPath::Inner(folder, codePage);
}

}  // namespace

ExitCode RunReview(const ReviewOptions& options) {
    modHostPath::SetNameCodePage(options.CodePage);
    if (const std::string stray = StrayValue(options); !stray.empty()) {
        modConsole::PrintError(stray);
        return ExitCode::NothingDone;
    }
    FoundProjects found = modProjectFinder::FindProjects(options.Paths, options.CodePage);
    const std::string resultsFolder = ChosenFolder(options.ResultsFolder, options.CodePage);
    const std::vector<std::string> filenames = WithoutNameClashes(found, resultsFolder);
    for (const std::string& error : found.Errors) {
        modConsole::PrintError(error);
    }
    if (filenames.empty()) {
        return ExitCode::NothingDone;
    }
    if (!HasTemplate()) {
        return ExitCode::NothingDone;
    }
    const std::string rulebase = RulebaseFile(options);
    if (!modReviewRulebase::CanBeUsed(rulebase, options.AcceptFaults)) {
        return ExitCode::NothingDone;
    }

    const std::shared_ptr<ReviewCriteria> criteria =
        MakeCriteria(options, filenames, resultsFolder);
    ReviewReports reports(
        options.Reports,
        options.Reports.Folder.empty()
            ? resultsFolder
            : modCommandPath::Inner(options.Reports.Folder, options.CodePage));
    reports.FillCriteria(*criteria, options.Paths, filenames);
    TypeLibraryStore typeLibraries(modTypeLibrarySettings::Places(options.TypeLibraries));
    ReviewManager manager;
    manager.SetTypeLibraries(&typeLibraries);
    manager.InitialiseReview(criteria);
    manager.RuleEngine().SetLimits(ScriptLimitsOf(options));
    if (options.RuleTimes) {
        manager.RuleEngine().MeasureRules();
    }
    if (!modReviewRulebase::LoadTolerances(*criteria)) {
        return ExitCode::NothingDone;
    }
    modToleranceLimits::Apply(options.Tolerances, criteria->Tolerances());
    const SliceResult result = Drive(manager, options);
    if (result == SliceResult::Aborted) {
        modConsole::PrintError(
            manager.ReportsCancelled()
                ? "interrupted; the results are complete, but the current report was not written"
                : "interrupted; the current project has no results");
        return ExitCode::Interrupted;
    }
    if (result == SliceResult::Failed) {
        modReviewRulebase::ReportUnusable(rulebase, manager.RuleEngine());
        return ExitCode::NothingDone;
    }

    ReviewSummary summary(*criteria);
    reports.Finish(*criteria, manager.Reports(), summary);
    if (!options.Quiet) {
        summary.Print();
        reports.Print();
    }
    if (options.RuleTimes) {
        modRuleTimes::Print(manager.RuleEngine());
    }
    const bool areRulesComplete = ReportIncompleteRules(manager.RuleEngine().Failures());
    ReportUnwrittenLog();
    if (const TypeCatalogue* const catalogue = typeLibraries.LoadedCatalogue()) {
        modTypeLibrarySettings::ReportFaults(*catalogue);
    }
    const bool complete =
        ReportFailures(*criteria, summary, reports) && found.Errors.empty() && areRulesComplete;
    if (summary.ReviewedProjects() == 0) {
        return ExitCode::NothingDone;
    }
    if (!complete) {
        return ExitCode::Incomplete;
    }
    return summary.AllPassed() ? ExitCode::Passed : ExitCode::Failed;
}

}  // namespace dorvik
