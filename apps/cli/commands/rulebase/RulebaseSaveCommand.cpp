#include "cli/commands/rulebase/RulebaseSaveCommand.h"

#include "cli/commands/rulebase/RulebaseFile.h"
#include "cli/output/Console.h"
#include "cli/output/modCommandPath.h"
#include "cli/output/modTerminalText.h"

namespace dorvik {

ExitCode RunRulebaseSave(const RulebaseSaveOptions& options) {
    const std::unique_ptr<Rulebase> rulebase = modRulebaseFile::Load(options.File);
    if (rulebase == nullptr) {
        return ExitCode::NothingDone;
    }
    const std::size_t unreadable = modRulebaseFile::ReportUnreadable(options.File);
    if (unreadable > 0 && modCommandPath::IsSameFile(options.File, options.Target)) {
        modConsole::PrintError(
            "'" + options.File +
            "' was not overwritten, because the parts that cannot be read would be lost; save to "
            "another file");
        return ExitCode::NothingDone;
    }
    if (!modRulebaseFile::Save(*rulebase, options.Target)) {
        return ExitCode::NothingDone;
    }
    modConsole::Print(
        modTerminalText::Harmless(
            "Saved '" + options.Target + "' as version " + rulebase->Version() + ".") +
        "\n");
    return unreadable > 0 ? ExitCode::Incomplete : ExitCode::Passed;
}

}  // namespace dorvik
