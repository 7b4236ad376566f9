#pragma once

#include "basic/Ast.h"
#include "basic/CompileError.h"

#include <string_view>
#include <vector>

namespace dorvik::basic {

struct ParsedModule {
    ModuleNode Module;
    std::vector<CompileError> Errors;  // in the order of the text; empty: the tree is whole
};

/// Reads a module. `source` is the text in UTF-8, lines ended by CR LF, LF or CR. Never throws on bad
/// text; after an error it goes on at the next statement, so that all errors are found. Nesting deeper
/// than `kDeepestNesting`, of blocks or in one expression, is an error of its own.
ParsedModule ParseModule(std::string_view source);

inline constexpr int kDeepestNesting = 400;

}  // namespace dorvik::basic
