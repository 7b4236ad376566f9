#include "basic/compiler/Compiler.h"

#include "ProcedureCompiler.h"
#include "UnsetNames.h"

#include <algorithm>
#include <tuple>

namespace dorvik::basic {

CompiledModule CompileModule(
    const ModuleNode& module,
    std::span<const ExtensionEntry> extensions,
    std::span<const ScriptOrigin> origins) {
    ModuleScope scope(module, extensions, origins);
    scope.Declare();
    for (std::size_t i = 0; i < scope.Nodes.size(); ++i) {
        CompileProcedure(scope, i);
    }
    WarnOfUnsetNames(scope);
    const auto byPlace = [](const auto& left, const auto& right) {
        return std::tie(left.Place.Line, left.Place.Column) <
               std::tie(right.Place.Line, right.Place.Column);
    };
    CompiledModule result;
    result.Errors = std::move(scope.Messages.Errors);
    std::stable_sort(result.Errors.begin(), result.Errors.end(), byPlace);
    std::stable_sort(scope.Messages.Warnings.begin(), scope.Messages.Warnings.end(), byPlace);
    result.Warnings = std::move(scope.Messages.Warnings);
    if (result.Errors.empty()) {
        result.Module = std::move(scope.Result);
        result.Module->Lines = module.Lines;
    }
    return result;
}

}  // namespace dorvik::basic
