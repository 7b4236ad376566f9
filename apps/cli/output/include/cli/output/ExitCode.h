#pragma once

namespace dorvik {

/// The result of a command for the calling process.
enum class ExitCode : int {
    Passed = 0,         // done, and every verdict is a pass
    Failed = 1,         // reviewed, and a verdict is a fail
    NothingDone = 2,    // wrong use, unreadable rulebase, nothing to review
    Incomplete = 3,     // finished, but a project or a source file could not be reviewed
    Interrupted = 130,  // ended by Ctrl-C, as shells tell it
};

}  // namespace dorvik
