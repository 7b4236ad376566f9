#pragma once

#include "cli/commands/rulebase/CatalogueCommand.h"
#include "cli/commands/rulebase/RulebaseCheckCommand.h"
#include "cli/commands/rulebase/RulebaseDocumentCommand.h"
#include "cli/commands/rulebase/RulebaseExplainCommand.h"
#include "cli/commands/rulebase/RulebaseListCommand.h"
#include "cli/commands/rulebase/RulebaseNewCommand.h"
#include "cli/commands/rulebase/RulebaseSaveCommand.h"
#include "cli/commands/rulebase/RulebaseShowCommand.h"
#include "cli/output/ExitCode.h"

#include <functional>

namespace CLI {
class App;
}

namespace dorvik {

/// The commands for rule authors as the command line knows them: `rulebase` with its own commands, and
/// `catalogue`. Holds the options that the parser of the command line fills in.
class RuleAuthorCommands {
public:
    /// Makes them known to the command line. `chosen` becomes the one that the user names.
    /// REQUIRES: this and `chosen` outlive the parsing of the command line and the run.
    void AddTo(CLI::App& app, std::function<ExitCode()>& chosen);

private:
    void AddReaders(CLI::App& rulebase, std::function<ExitCode()>& chosen);
    void AddList(CLI::App& rulebase, std::function<ExitCode()>& chosen);
    void AddWriters(CLI::App& rulebase, std::function<ExitCode()>& chosen);
    void AddCatalogue(CLI::App& app, std::function<ExitCode()>& chosen);

    RulebaseShowOptions m_show;
    RulebaseListOptions m_list;
    RulebaseExplainOptions m_explain;
    RulebaseCheckOptions m_check;
    RulebaseNewOptions m_new;
    RulebaseSaveOptions m_save;
    RulebaseDocumentOptions m_document;
    CatalogueOptions m_catalogue;
};

}  // namespace dorvik
