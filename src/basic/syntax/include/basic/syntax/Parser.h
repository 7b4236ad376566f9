#pragma once

#include "basic/syntax/Ast.h"
#include "basic/syntax/CompileError.h"

#include <string_view>
#include <vector>

namespace dorvik::basic {

struct ParsedModule {
    ModuleNode Module;
    std::vector<CompileError> Errors;  // in the order of the text; empty: the tree is whole
};

/// Reads a module. `source` is the text in UTF-8, lines ended by CR LF, LF or CR. Never throws on bad
/// text; after an error it continues at the next statement, so that all errors are found. Nesting deeper
/// than `kDeepestNesting`, of blocks or in one expression, is an error of its own.
ParsedModule ParseModule(std::string_view source);

/// Blocks within blocks; and, counted apart, parentheses, argument lists and prefix operators within
/// each other in one expression.
inline constexpr int kDeepestNesting = 400;
/// Levels of an expression's tree. A chain (`a + b + c`, `a.b.c`) has a level for each term, so it may
/// have about this many. Code that traverses or destroys the tree may recurse.
inline constexpr int kTallestExpression = 1'200;
/// Words and signs of one statement line with its continuations.
inline constexpr int kLongestLine = 1'000'000;
/// Dimensions of an array.
inline constexpr int kMostDimensions = 60;

}  // namespace dorvik::basic
