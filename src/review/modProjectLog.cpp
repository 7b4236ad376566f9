#include "modProjectLog.h"

#include "base/DateTime.h"
#include "enforcement/ReviewLog.h"
#include "foundation/log/Trap.h"
#include "platform/host/modHost.h"
#include "source/VirtualProject.h"

#include <string>

namespace dorvik::modProjectLog {

namespace {

// The log names this operation as one of the project review.
constexpr std::string_view kModule = "C_VB6ProjectReview";

std::string DateAndTime() {
    const DateTime now = modHost::Now();
    return modDateText::LongDate(now) + " " + modDateText::LongTime(now);
}

/// Writes one line for each kind of error that occurred.
void LogErrors(const ReviewLog& log, const VirtualProject& project) {
    const auto logCount = [&log](std::int32_t count, std::string_view text) {
        if (count > 0) {
            LogLine(log, std::to_string(count).append(text));
        }
    };
    const ProjectOutcome& outcome = project.Outcome();
    logCount(outcome.ComponentErrors, " error(s) loading components.");
    logCount(outcome.ReferenceErrors, " error(s) loading references.");
    logCount(outcome.ScanErrors, " error(s) extracting global names.");
    logCount(outcome.FileErrors, " error(s) reviewing source files.");
    logCount(
        outcome.ResultsLost.Count,
        " error(s) storing results: " + outcome.ResultsLost.Reason + ".");
}

}  // namespace

void LogLine(const ReviewLog& log, std::string_view line) {
    Trap({kModule, "LogLine"}, [&] { log.DumpDebugPrint(line, false); });
}

void LogBegin(const ReviewLog& log, std::string_view projectFile) {
    LogLine(log, "Project: " + std::string(projectFile));
    LogLine(log, "Review start date: " + DateAndTime());
}

void LogEnd(const ReviewLog& log, const VirtualProject& project) {
    LogLine(log, "Review end date: " + DateAndTime());
    LogLine(log, "Review complete.");
    if (project.Outcome().ReviewStatus == 0) {
        LogLine(log, "Project reviewed successfully.");
        return;
    }
    LogLine(log, "Unexpected error(s) encountered during review.");
    LogErrors(log, project);
}

}  // namespace dorvik::modProjectLog
