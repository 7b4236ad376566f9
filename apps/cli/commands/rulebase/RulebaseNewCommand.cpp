#include "cli/commands/rulebase/RulebaseNewCommand.h"

#include "cli/commands/rulebase/RulebaseFile.h"
#include "cli/output/Console.h"
#include "cli/output/modCommandPath.h"
#include "cli/output/modTerminalText.h"
#include "platform/host/modFiles.h"

namespace dorvik {

ExitCode RunRulebaseNew(const RulebaseNewOptions& options) {
    const std::string path = modCommandPath::Inner(options.File);
    if (modFiles::FolderExists(path)) {
        modConsole::PrintError("'" + options.File + "' is a folder, not a file");
        return ExitCode::NothingDone;
    }
    if (!options.Force && modFiles::FileExists(path)) {
        modConsole::PrintError(
            "'" + options.File + "' already exists and was not overwritten (use --force)");
        return ExitCode::NothingDone;
    }
    Rulebase rulebase;
    if (!options.Title.empty()) {
        rulebase.SetTitle(options.Title);
    }
    if (!modRulebaseFile::Save(rulebase, options.File)) {
        return ExitCode::NothingDone;
    }
    modConsole::Print(
        modTerminalText::Harmless(
            "New rulebase '" + options.File + "', version " + rulebase.Version() + ".") +
        "\n");
    return ExitCode::Passed;
}

}  // namespace dorvik
