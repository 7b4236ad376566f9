#pragma once

#include "ExpressionParser.h"
#include "basic/syntax/Ast.h"

#include <vector>

namespace dorvik::basic {

/// Parses what declarations are made of: lists of variables and constants, bounds, types and
/// parameters. The words before them (`Dim`, `Public Const`) are taken already.
/// REQUIRES: the cursor and the expression parser outlive it.
class DeclarationParser {
public:
    DeclarationParser(TokenCursor& cursor, ExpressionParser& expressions)
        : m_cursor(cursor), m_expressions(expressions) {}

    std::vector<VariableNode> ParseVariables();
    std::vector<ConstantNode> ParseConstants();
    RedimStatement ParseRedim();
    /// With the parentheses, if there are any.
    std::vector<ParameterNode> ParseParameters();
    /// `As T` of a function's result, if it is there.
    TypeName ParseResultType(char suffix);
    VariableNode ParseRecordMember();

private:
    VariableNode ParseVariable();
    /// The name, taken already, and the bounds after it.
    void BeginVariable(const Token& name, VariableNode& variable);
    ConstantNode ParseConstant();
    ParameterNode ParseParameter();
    void ParseParameterWords(ParameterNode& parameter);
    void CheckParameter(const ParameterNode& parameter);
    void CheckParameterOrder(const std::vector<ParameterNode>& parameters);
    RedimTarget ParseRedimTarget();
    /// The bounds after the `(`, which is taken already, with the `)`.
    std::vector<BoundsNode> ParseBounds();
    BoundsNode ParseBound();
    bool TakeEmptyParentheses();
    TypeName ParseTypeClause(char suffix);
    void RejectValue();

    TokenCursor& m_cursor;
    ExpressionParser& m_expressions;
};

}  // namespace dorvik::basic
