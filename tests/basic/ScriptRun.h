#pragma once

#include "basic/engine/ScriptEngine.h"

#include <string>
#include <string_view>
#include <vector>

namespace dorvik::basic {

/// What came of a module.
struct ScriptRun {
    std::vector<std::string> Printed;  // the lines of Debug.Print
    std::vector<CompileError> Errors;  // not empty: nothing ran
    std::vector<CompileWarning> Warnings;
    std::vector<ErrorAlert> Alerts;  // of untrapped errors, at most one for each run
    std::vector<std::string> Refused;
    bool HasFinished = false;

    /// All lines, an LF behind each; behind them "Error N: text" of an alert or "Compile error N: text".
    std::string Output() const;
};

/// Loads a module and runs its Sub `name`. With an extension, that is reached under "Dorvik.".
ScriptRun RunModule(
    std::string_view text,
    std::string_view name = "Main",
    IScriptExtension* extension = nullptr,
    const ScriptLimits& limits = {});

/// Runs statements as the body of a Sub.
ScriptRun RunStatements(std::string_view statements, IScriptExtension* extension = nullptr);

/// What one expression prints, without the blanks around; "Error N" if it fails.
std::string Evaluated(std::string_view expression);

}  // namespace dorvik::basic
