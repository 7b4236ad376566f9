#pragma once

#include "cli/CommandLineFixture.h"

#include <string>

namespace dorvik::test {

/// Runs the program through a shell, for streams, folders and signals that only a shell can arrange.
class ShellFixture : public CommandLineFixture {
protected:
    /// Runs the command line in the working folder; `$DORVIK` is the program and `$RULEBASE` the small one of
    /// the tests. The exit code is that of a shell: 128 and more for a signal. Standard output is kept unless
    /// the command takes it elsewhere.
    ProgramResult Shell(const std::string& command) const;
};

}  // namespace dorvik::test
