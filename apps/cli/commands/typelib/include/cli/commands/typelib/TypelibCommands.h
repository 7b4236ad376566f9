#pragma once

#include "cli/commands/typelib/TypelibIndexCommand.h"
#include "cli/commands/typelib/TypelibListCommand.h"
#include "cli/output/ExitCode.h"

#include <functional>

namespace CLI {
class App;
}

namespace dorvik {

/// `dorvik typelib ...`: what is known of the type libraries that projects refer to.
class TypelibCommands {
public:
    /// Adds the commands. The one that is chosen is left in `chosen`. REQUIRES: this object and `chosen`
    /// outlive the reading of the command line.
    void AddTo(CLI::App& app, std::function<ExitCode()>& chosen);

private:
    TypelibListOptions m_list;
    TypelibIndexOptions m_index;
};

}  // namespace dorvik
