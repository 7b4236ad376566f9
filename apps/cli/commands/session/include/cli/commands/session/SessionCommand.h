#pragma once

#include "cli/output/ExitCode.h"

#include <string>

namespace dorvik {

/// Plays the script of a work bench session, a path of this machine or "-" for standard input, and prints what it dumps. `Failed` where an
/// expectation is not met, `NothingDone` for a script that cannot be read or understood.
///
/// REQUIRES: the process-wide objects are not in use.
ExitCode RunSession(const std::string& script);

}  // namespace dorvik
