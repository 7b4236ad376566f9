#pragma once

#include "cli/output/ExitCode.h"

#include <functional>

namespace dorvik {

/// What is around a whole command, so that nothing leaves the program but an exit code and a sentence.
namespace modLastResort {

/// Runs the command. A failure that nothing else has caught is reported in one sentence, files that it left
/// unfinished are removed, and the exit code is `NothingDone`.
int Run(const std::function<int()>& command);

/// From here on also what no `catch` reaches, as a failure on the way out of one, ends the program that way.
void InstallForTermination();

}  // namespace modLastResort

}  // namespace dorvik
