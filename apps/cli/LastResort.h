#pragma once

#include "cli/output/ExitCode.h"

#include <functional>

namespace dorvik {

/// What stands around a whole command, so that nothing leaves the program but an exit code and a sentence.
namespace modLastResort {

/// Runs the command. A failure that nobody else has caught is told in one sentence, files that it left
/// unfinished are removed, and the exit code is `NothingDone`.
int Run(const std::function<int()>& command);

/// From here on also what no `catch` reaches, as a failure on the way out of one, ends the program that way.
void InstallForTermination();

}  // namespace modLastResort

}  // namespace dorvik
