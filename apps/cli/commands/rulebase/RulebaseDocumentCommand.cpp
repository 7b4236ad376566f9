#include "cli/commands/rulebase/RulebaseDocumentCommand.h"

#include "cli/commands/rulebase/RulebaseFile.h"
#include "cli/output/Console.h"
#include "rulebase/document/RulebaseDocument.h"

#include <filesystem>

namespace dorvik {

ExitCode RunRulebaseDocument(const RulebaseDocumentOptions& options) {
    const std::unique_ptr<Rulebase> rulebase = modRulebaseFile::Load(options.File);
    if (rulebase == nullptr) {
        return ExitCode::NothingDone;
    }
    std::error_code error;
    if (std::filesystem::equivalent(options.File, options.Target, error) && !error) {
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
