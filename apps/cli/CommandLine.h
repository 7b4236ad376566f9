#pragma once

namespace dorvik {

/// Reads the command line and runs the command that it names. Returns the exit code.
int RunCommandLine(int argc, char** argv);

}  // namespace dorvik
