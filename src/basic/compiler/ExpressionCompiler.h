#pragma once

#include "NameMeaning.h"
#include "Operand.h"
#include "ProcedurePart.h"

#include <optional>
#include <string>
#include <vector>

namespace dorvik::basic {

/// Computes expressions. Operators, members and calls are parts of their own.
class ExpressionCompiler : private ProcedurePart {
public:
    explicit ExpressionCompiler(ProcedureContext& context) : ProcedurePart(context) {}

    /// The value of the expression, anywhere.
    Operand Evaluate(const Expression& expression, ResultHint hint = {});
    /// The value of a name without parentheses.
    Operand EvaluateSymbol(const NameMeaning& meaning, const std::string& name, SourcePlace place);
    /// The value of the expression in `target`, coerced to `type`.
    void EvaluateInto(const Expression& expression, Register target, const DeclaredType& type);
    /// Whether the expression may call something that changes a variable.
    bool MayRunCode(const Expression& expression);
    bool MayRunCode(const std::vector<Argument>& arguments);
    /// The value of a whole constant, for which no code is needed.
    std::optional<std::int32_t> LongConstantOf(const Expression& expression);

private:
    Operand EvaluateNode(const Expression& expression);
    Operand EvaluateName(const Expression& expression, const NameNode& node);
    Operand EvaluateTypeOf(const TypeOfNode& node, SourcePlace place);
    Operand EvaluateNew(const NewNode& node, SourcePlace place);
    Operand EvaluateIndex(const Expression& expression, const IndexNode& node);
    Operand
    EvaluateIndexedName(const Expression& expression, const NameNode& name, const IndexNode& node);
};

}  // namespace dorvik::basic
