#include "ReviewRulebase.h"

#include "cli/commands/rulebase/RulebaseFile.h"
#include "cli/output/Console.h"
#include "criteria/ReviewCriteria.h"
#include "enforcement/RuleEngine.h"
#include "enforcement/RuleScriptChecker.h"
#include "foundation/log/Trap.h"
#include "platform/host/ScopedInstall.h"
#include "rulebase/check/RulebaseCheck.h"
#include "rulebase/file/RulebaseManager.h"
#include "rulebase/model/Rulebase.h"

#include <functional>

namespace dorvik::modReviewRulebase {

namespace {

/// As many faults are reported one by one.
constexpr std::size_t kReportedFaults = 10;

void ReportFault(const std::string& shown, const RulebaseFault& fault) {
    const std::string line = fault.Line > 0 ? ", line " + std::to_string(fault.Line) : "";
    modConsole::PrintError("the rulebase '" + shown + "'" + line + ": " + fault.Text());
}

/// Reports the faults that cost a review something and are of the wanted sort. Returns their number.
std::size_t ReportFaults(
    const std::string& shown,
    const RulebaseCheck& check,
    const std::function<bool(const RulebaseFault&)>& isWanted) {
    std::size_t count = 0;
    for (const RulebaseFault& fault : check.Faults()) {
        if (fault.CostsReview && isWanted(fault) && ++count <= kReportedFaults) {
            ReportFault(shown, fault);
        }
    }
    if (count > kReportedFaults) {
        modConsole::PrintError(
            "there are " + std::to_string(count - kReportedFaults) +
            " more faults (see 'dorvik rulebase check')");
    }
    return count;
}

}  // namespace

bool CanBeUsed(const std::string& path, bool acceptFaults) {
    const std::string shown = modConsole::ShownPath(path);
    if (!modRulebaseFile::Exists(shown)) {
        return false;
    }
    RulebaseCheck check;
    if (!check.RunForLoad(path)) {
        modConsole::PrintError(modRulebaseFile::CannotBeRead(shown, check.Problem()));
        return false;
    }
    if (ReportFaults(shown, check, [](const RulebaseFault&) { return true; }) == 0) {
        return true;
    }
    modConsole::PrintError(
        acceptFaults
            ? "note: the unreadable parts of '" + shown + "' take no part in the review"
            : "nothing was reviewed, because '" + shown +
                  "' cannot be read completely (use --accept-faults to review with the rest)");
    return acceptFaults;
}

bool LoadTolerances(ReviewCriteria& criteria) {
    CategoryList categories;
    SeverityTable severities;
    RulebaseLoadCriteria& load = criteria.LoadCriteria();
    KeptMessage message;
    const ScopedInstall<IMessageBox> installed(message);
    const bool loaded = RulebaseManager().LoadReviewOptions(
        load.RulebaseFile(), categories, severities, load, &criteria.Tolerances());
    if (!loaded) {
        modConsole::PrintError(modRulebaseFile::CannotBeRead(
            modConsole::ShownPath(load.RulebaseFile()), message.Text()));
    }
    return loaded;
}

void ReportUnusable(const std::string& path, const RuleEngine& ruleEngine) {
    const std::string shown = modConsole::ShownPath(path);
    if (ruleEngine.LoadError().empty()) {
        modConsole::PrintError(modRulebaseFile::CannotBeRead(shown, ""));
        return;
    }
    RuleScriptChecker scripts;
    RulebaseCheck check(&scripts);
    // The check may fail for the reason that the review did, as a temporary folder that cannot be used.
    const bool isReported = Trapped({"modReviewRulebase", "ReportUnusable"}, false, [&] {
        return check.Run(path) && ReportFaults(shown, check, [](const RulebaseFault& fault) {
                                      return fault.Kind == FaultKind::Script;
                                  }) > 0;
    });
    modConsole::PrintError(
        "nothing was reviewed, because the scripts of the rulebase '" + shown + "' cannot be used" +
        (isReported ? "" : ": " + ruleEngine.LoadError()));
}

}  // namespace dorvik::modReviewRulebase
