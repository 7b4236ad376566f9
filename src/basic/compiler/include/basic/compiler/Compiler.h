#pragma once

#include "basic/program/Program.h"
#include "basic/syntax/ScriptOrigin.h"

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace dorvik::basic {

/// An object of the host under the name that scripts use for it, without the point: "Dorvik".
/// REQUIRES: the extension outlives every program compiled with it.
struct ExtensionEntry {
    std::string Prefix;
    IScriptExtension* Extension = nullptr;
    const PropertyCache* Answers = nullptr;  // null if it keeps none
};

/// What came of a module. Owns everything that it needs: the tree can be destroyed.
struct CompiledModule {
    std::unique_ptr<Program> Module;       // null if there are errors
    std::vector<CompileError> Errors;      // in the order of the lines
    std::vector<CompileWarning> Warnings;  // in the order of the lines, also if there are errors
};

/// Compiles a module: resolves its names and types, and writes the code of its procedures. Never throws because of the
/// script. All errors are found, not only the first one. What fails only when it is reached (a member that an extension
/// does not have, a statement that scripts must not use) is a warning, and an instruction that raises the error.
/// `origins` are the scripts that the lines come from, for the messages; none: lines count in the module.
/// REQUIRES: the tree has no parse errors.
CompiledModule CompileModule(
    const ModuleNode& module,
    std::span<const ExtensionEntry> extensions,
    std::span<const ScriptOrigin> origins);

}  // namespace dorvik::basic
