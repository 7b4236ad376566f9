#pragma once

#include "basic/syntax/Ast.h"

#include <string>

namespace dorvik::basic {

/// Trees as one line of text, to compare them in tests. Operations stand in parentheses, what the
/// script itself put in parentheses in braces: `a + b * (c)` is `(a + (b * {c}))`. Numbers carry the
/// suffix of their type, except Integer. An argument left out is `_`, statements are joined by "; ".
std::string AstText(const Expression& expression);
std::string AstText(const ExpressionPointer& expression);  // "" for null
std::string AstText(const Statement& statement);
std::string AstText(const Block& block);
std::string AstText(const ModuleItem& item);

}  // namespace dorvik::basic
