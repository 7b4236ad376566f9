#pragma once

#include "Operand.h"
#include "ProcedurePart.h"

#include <optional>

namespace dorvik::basic {

/// Chooses and writes the instruction of an operator: for numbers and texts of known type where the operands
/// allow, otherwise for any values.
class OperatorCompiler : private ProcedurePart {
public:
    explicit OperatorCompiler(ProcedureContext& context) : ProcedurePart(context) {}

    Operand EvaluateUnary(const UnaryNode& node);
    Operand EvaluateBinary(const BinaryNode& node, ResultHint hint);
    /// The operator on values of any type.
    Operand GenericOperator(
        BinaryOperator which, const Operand& left, const Operand& right, ResultHint hint);

private:
    Operand
    LongOperator(BinaryOperator which, const Operand& left, const Operand& right, ResultHint hint);
    Operand TypedOperator(
        Opcode code,
        DeclaredKind kind,
        Register left,
        Register right,
        ResultHint hint,
        std::uint8_t flags = 0);
    std::optional<Operand>
    TryTyped(BinaryOperator which, const Operand& left, const Operand& right, ResultHint hint);
    std::optional<Operand>
    TryComparison(BinaryOperator which, const Operand& left, const Operand& right);
    /// Two constant texts as one, such as `"x" & vbLf`.
    std::optional<Operand> TryJoin(BinaryOperator which, const Operand& left, const Operand& right);
};

}  // namespace dorvik::basic
