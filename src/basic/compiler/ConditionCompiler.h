#pragma once

#include "Operand.h"
#include "ProcedurePart.h"

namespace dorvik::basic {

/// Jumps on conditions, with one instruction for a comparison where the operands allow.
class ConditionCompiler : private ProcedurePart {
public:
    explicit ConditionCompiler(ProcedureContext& context) : ProcedurePart(context) {}

    /// Jumps when the condition is as `when` says; otherwise the code continues.
    void JumpOn(const Expression& condition, bool when, Label target);
    /// The same for a comparison of two values.
    void JumpOnRelation(
        Relation relation, const Operand& left, const Operand& right, bool when, Label target);

private:
    bool JumpOnComparison(const BinaryNode& node, bool when, Label target);
    bool JumpOnLongs(Relation relation, const Operand& left, const Operand& right, Label target);
};

}  // namespace dorvik::basic
