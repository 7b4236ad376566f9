#pragma once

#include "cli/commands/results/ResultsHotspotsCommand.h"
#include "cli/commands/results/ResultsRecords.h"
#include "cli/commands/results/ResultsTolerancesCommand.h"
#include "cli/commands/results/ResultsViolationsCommand.h"
#include "cli/output/ExitCode.h"

#include <functional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace dorvik {

/// `dorvik results DATABASE` with its own commands, as the command line knows them. Holds the options that
/// the parser of the command line fills in.
class ResultsCommands {
public:
    /// Makes them known to the command line. `chosen` becomes the one that the user names.
    /// REQUIRES: this and `chosen` outlive the parsing of the command line and the run.
    void AddTo(CLI::App& app, std::function<ExitCode()>& chosen);

private:
    void AddOverviews(CLI::App& results, std::function<ExitCode()>& chosen);
    void AddHotspots(CLI::App& results, std::function<ExitCode()>& chosen);
    void AddViolations(CLI::App& results, std::function<ExitCode()>& chosen);
    void AddMarks(CLI::App& results, std::function<ExitCode()>& chosen);

    std::string m_database;
    ResultsForm m_form;  // of the command that is chosen
    ResultsHotspotsOptions m_files;
    ResultsHotspotsOptions m_procedures;
    ResultsViolationsOptions m_violations;
    ResultsTolerancesOptions m_tolerances;
    std::vector<std::string> m_ids;
};

}  // namespace dorvik
