#pragma once

#include "cli/commands/script/ScriptCommand.h"
#include "cli/output/ExitCode.h"

#include <functional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace dorvik {

/// `dorvik script ...`: what an author of rule scripts does outside a review.
class ScriptCommands {
public:
    /// Adds the commands. The one that is chosen is left in `chosen`. REQUIRES: this object and `chosen`
    /// outlive the reading of the command line.
    void AddTo(CLI::App& app, std::function<ExitCode()>& chosen);

private:
    ScriptRunOptions m_run;
    std::vector<std::string> m_checked;
    std::string m_disassembled;
};

}  // namespace dorvik
