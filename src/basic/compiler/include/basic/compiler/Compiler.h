#pragma once

#include "basic/program/Program.h"
#include "basic/syntax/ScriptOrigin.h"

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace dorvik::basic {

/// An extension object under the name that scripts use, without the point.
struct ExtensionEntry {
    std::string Prefix;
    IScriptExtension* Extension = nullptr;
};

struct CompiledModule {
    std::unique_ptr<Program> Module;       // null if there are errors
    std::vector<CompileError> Errors;      // in the order of the lines
    std::vector<CompileWarning> Warnings;  // the same, also where there are errors
};

/// Makes a program of a tree. Finds all errors that can be told; those that only a run can tell become
/// instructions that raise them. `origins` serves the texts: a duplicate name tells both scripts.
CompiledModule CompileModule(
    const ModuleNode& module,
    std::span<const ExtensionEntry> extensions,
    std::span<const ScriptOrigin> origins);

}  // namespace dorvik::basic
