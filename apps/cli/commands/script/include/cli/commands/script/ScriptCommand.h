#pragma once

#include "cli/output/ExitCode.h"

#include <cstdint>
#include <string>
#include <vector>

namespace dorvik {

struct ScriptRunOptions {
    std::string File;
    std::string SubName = "Main";
    std::string FactsFile;  // empty: no extension object
    double Seconds = 0;     // 0: no limit
};

/// Runs a Sub of a script outside any review.
ExitCode RunScript(const ScriptRunOptions& options);
/// Compiles scripts and prints what is wrong with them, and what their authors should know.
ExitCode CheckScripts(const std::vector<std::string>& files);
/// Prints the instructions of a script beside its lines.
ExitCode DisassembleScript(const std::string& file);

}  // namespace dorvik
