#include "ConditionCompiler.h"

#include "ExpressionCompiler.h"
#include "OperandCompiler.h"
#include "OperandTypes.h"
#include "Relations.h"

#include <iterator>
#include <utility>

namespace dorvik::basic {

namespace {

/// By the relation.
constexpr Opcode kLongImmediateJumps[] = {
    Opcode::JumpLongEqualTo,
    Opcode::JumpLongNotEqualTo,
    Opcode::JumpLongLessThan,
    Opcode::JumpLongGreaterThan,
    Opcode::JumpLongAtMost,
    Opcode::JumpLongAtLeast,
};
static_assert(
    std::size(kLongImmediateJumps) == static_cast<std::size_t>(Relation::GreaterOrEqual) + 1);

}  // namespace

bool ConditionCompiler::JumpOnLongs(
    Relation relation, const Operand& left, const Operand& right, Label target) {
    if (const auto number = Operands().SmallConstant(right); number && left.Constant == nullptr) {
        m_code.Emit(
            kLongImmediateJumps[static_cast<std::size_t>(relation)],
            Operands().SlotOf(left),
            static_cast<Register>(*number));
    } else if (const auto first = Operands().SmallConstant(left);
               first && right.Constant == nullptr) {
        return JumpOnLongs(Swapped(relation), right, left, target);
    } else {
        Register a = Operands().LongSlotOf(left);
        Register b = Operands().LongSlotOf(right);
        if (relation == Relation::Greater || relation == Relation::GreaterOrEqual) {
            std::swap(a, b);
            relation = Swapped(relation);
        }
        const Opcode code = relation == Relation::Equal      ? Opcode::JumpLongEqual
                            : relation == Relation::NotEqual ? Opcode::JumpLongNotEqual
                            : relation == Relation::Less     ? Opcode::JumpLongLess
                                                             : Opcode::JumpLongLessOrEqual;
        m_code.Emit(code, a, b);
    }
    m_code.EmitJump(Opcode::Jump, target);
    return true;
}

void ConditionCompiler::JumpOnRelation(
    Relation relation, const Operand& left, const Operand& right, bool when, Label target) {
    const Relation wanted = when ? relation : Inverted(relation);
    if (IsWhole(left.Type) && IsWhole(right.Type)) {
        JumpOnLongs(wanted, left, right, target);
        return;
    }
    if (AreDoubles(left, right)) {
        Register a = Operands().DoubleSlotOf(left);
        Register b = Operands().DoubleSlotOf(right);
        const bool swaps = wanted == Relation::Greater || wanted == Relation::GreaterOrEqual;
        if (swaps) {
            std::swap(a, b);
        }
        const Relation used = swaps ? Swapped(wanted) : wanted;
        const Opcode code = used == Relation::Equal      ? Opcode::JumpDoubleEqual
                            : used == Relation::NotEqual ? Opcode::JumpDoubleNotEqual
                            : used == Relation::Less     ? Opcode::JumpDoubleLess
                                                         : Opcode::JumpDoubleLessOrEqual;
        m_code.Emit(code, a, b);
    } else if (
        IsText(left.Type) && IsText(right.Type) && !m_scope.Module.ComparesText &&
        (relation == Relation::Equal || relation == Relation::NotEqual)) {
        const Register a = Operands().SlotOf(left);
        const Register b = Operands().SlotOf(right);
        m_code.Emit(
            wanted == Relation::Equal ? Opcode::JumpTextEqual : Opcode::JumpTextNotEqual, a, b);
    } else {
        const Register a = Operands().SlotOf(left);
        const int flags = FactsOf(left, right) | static_cast<int>(relation) << kOperatorShift;
        if (const auto text = Operands().TextConstant(right)) {
            m_code.Emit(
                Opcode::JumpCompareConstant,
                a,
                *text,
                when ? 1 : 0,
                static_cast<std::uint8_t>(flags));
            m_code.EmitJump(Opcode::Jump, target);
            return;
        }
        const Register b = Operands().SlotOf(right);
        m_code.Emit(Opcode::JumpCompare, a, b, when ? 1 : 0, static_cast<std::uint8_t>(flags));
    }
    m_code.EmitJump(Opcode::Jump, target);
}

bool ConditionCompiler::JumpOnComparison(const BinaryNode& node, bool when, Label target) {
    if (!IsRelation(node.Operator)) {
        return false;
    }
    Operand left = Expressions().Evaluate(*node.Left);
    if (left.Constant == nullptr && Expressions().MayRunCode(*node.Right)) {
        left = Operands().Stable(left);
    }
    const Operand right = Expressions().Evaluate(*node.Right);
    JumpOnRelation(RelationOf(node.Operator), left, right, when, target);
    return true;
}

void ConditionCompiler::JumpOn(const Expression& condition, bool when, Label target) {
    const std::size_t mark = m_code.TemporaryMark();
    if (const auto* inner = std::get_if<ParenthesisNode>(&condition.Node)) {
        JumpOn(*inner->Inner, when, target);
        return;
    }
    const auto* binary = std::get_if<BinaryNode>(&condition.Node);
    if (binary == nullptr || !JumpOnComparison(*binary, when, target)) {
        const Operand value = Expressions().Evaluate(condition);
        const Register slot = Operands().SlotOf(value);
        if (IsBoolean(value.Type)) {
            m_code.EmitJump(when ? Opcode::JumpIf : Opcode::JumpUnless, target, slot);
        } else {
            m_code.EmitJump(when ? Opcode::JumpIfTrue : Opcode::JumpUnlessTrue, target, slot);
        }
    }
    m_code.ReleaseTemporaries(mark);
}

}  // namespace dorvik::basic
