#include "cli/RulebaseNewCommand.h"

#include "cli/Console.h"
#include "cli/RulebaseFile.h"
#include "cli/modCommandPath.h"
#include "cli/modTerminalText.h"
#include "platform/modFiles.h"

namespace dorvik {

ExitCode RunRulebaseNew(const RulebaseNewOptions& options) {
    const std::string path = modCommandPath::Inner(options.File);
    if (modFiles::FolderExists(path)) {
        modConsole::PrintError("'" + options.File + "' is a folder, not a file to write");
        return ExitCode::NothingDone;
    }
    if (!options.Force && modFiles::FileExists(path)) {
        modConsole::PrintError(
            "'" + options.File + "' is there already and stays as it is (--force replaces it)");
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
