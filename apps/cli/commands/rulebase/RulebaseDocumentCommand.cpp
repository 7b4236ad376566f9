#include "cli/commands/rulebase/RulebaseDocumentCommand.h"

#include "cli/commands/rulebase/RulebaseFile.h"
#include "cli/output/Console.h"
#include "cli/output/modCommandPath.h"
#include "rulebase/document/RulebaseDocument.h"

namespace dorvik {

ExitCode RunRulebaseDocument(const RulebaseDocumentOptions& options) {
    const std::unique_ptr<Rulebase> rulebase = modRulebaseFile::Load(options.File);
    if (rulebase == nullptr) {
        return ExitCode::NothingDone;
    }
    if (modCommandPath::IsSameFile(options.File, options.Target)) {
        modConsole::PrintError(
            "the page would overwrite the rulebase '" + options.File + "'; write to another file");
        return ExitCode::NothingDone;
    }
    const std::size_t unreadable = modRulebaseFile::ReportUnreadable(options.File);
    if (!modRulebaseFile::Write(RulebaseDocument(*rulebase).Write(), options.Target)) {
        return ExitCode::NothingDone;
    }
    return unreadable > 0 ? ExitCode::Incomplete : ExitCode::Passed;
}

}  // namespace dorvik
