#include "basic/operations/Operations.h"
#include "basic/operations/Variables.h"
#include "basic/values/Operators.h"

#include <algorithm>

namespace dorvik::basic::modOperations {

namespace {

constexpr std::size_t kBytesOfAUnit = 64;  // of text that is copied

BinaryOperator OperatorOf(const Instruction& in) {
    if (in.Code == Opcode::Add) {
        return BinaryOperator::Add;
    }
    if (in.Code == Opcode::Subtract) {
        return BinaryOperator::Subtract;
    }
    if (in.Code == Opcode::Multiply) {
        return BinaryOperator::Multiply;
    }
    if (in.Code == Opcode::Concatenate) {
        return BinaryOperator::Concatenate;
    }
    const bool isRelation = in.Code == Opcode::Compare || in.Code == Opcode::JumpCompare ||
                            in.Code == Opcode::CompareConstant ||
                            in.Code == Opcode::JumpCompareConstant;
    const int first = isRelation ? static_cast<int>(BinaryOperator::Equal) : 0;
    return static_cast<BinaryOperator>(first + (in.Flags >> kOperatorShift));
}

std::size_t SizeOf(const Value& value) {
    return value.Type() == ValueType::String ? value.AsText().size() : 0;
}

/// Two texts are compared to the end of the shorter one at most; one that meets a number is read whole.
std::size_t CostOfTexts(const Value& left, const Value& right) {
    const bool areBoth = left.Type() == ValueType::String && right.Type() == ValueType::String;
    return (areBoth ? std::min(SizeOf(left), SizeOf(right)) : SizeOf(left) + SizeOf(right)) /
           kBytesOfAUnit;
}

void OperateUnary(MachineState& state, Instruction in, Value* base, UnaryOperator which) {
    state.Budget.Spend(SizeOf(base[in.B]) / kBytesOfAUnit);
    base[in.A] = Apply(which, base[in.B], in.Flags != 0);
}

}  // namespace

void SlowOperator(MachineState& state, Instruction in, Value* base) {
    const Value& left = base[in.B];
    const Value& right = base[in.C];
    if (in.Code == Opcode::Concatenate) {
        state.Budget.Spend((SizeOf(left) + SizeOf(right)) / kBytesOfAUnit);
        if (left.Type() == ValueType::String && right.Type() == ValueType::String) {
            if (left.AsText().empty()) {
                base[in.A] = Value(right);
            } else if (right.AsText().empty()) {
                base[in.A] = Value(left);
            } else {
                base[in.A] = Value::Text(StringBody::Joined(left.AsText(), right.AsText()));
            }
            return;
        }
    }
    Operate(state, in, base);
}

void Operate(MachineState& state, Instruction in, Value* base) {
    const Value& left = base[in.B];
    const Value& right = base[in.C];
    if (in.Code == Opcode::Operate && left.Type() == ValueType::Boolean &&
        right.Type() == ValueType::Boolean) {
        const BinaryOperator which = OperatorOf(in);
        if (which == BinaryOperator::And || which == BinaryOperator::Or) {
            const bool isBoth = which == BinaryOperator::And;
            base[in.A] = Value::Boolean(
                isBoth ? left.AsBoolean() && right.AsBoolean()
                       : left.AsBoolean() || right.AsBoolean());
            return;
        }
    }
    const OperandFacts facts{
        (in.Flags & kLeftIsVariant) != 0,
        (in.Flags & kRightIsVariant) != 0,
        state.Program->ComparesText};
    state.Budget.Spend(CostOfTexts(base[in.B], base[in.C]));
    base[in.A] = Apply(OperatorOf(in), base[in.B], base[in.C], facts);
}

void Negate(MachineState& state, Instruction in, Value* base) {
    OperateUnary(state, in, base, UnaryOperator::Negate);
}

void Plus(MachineState& state, Instruction in, Value* base) {
    OperateUnary(state, in, base, UnaryOperator::Plus);
}

void Not(MachineState& state, Instruction in, Value* base) {
    OperateUnary(state, in, base, UnaryOperator::Not);
}

bool SlowCompare(MachineState& state, Instruction in, Value* base) {
    const OperandFacts facts{
        (in.Flags & kLeftIsVariant) != 0,
        (in.Flags & kRightIsVariant) != 0,
        state.Program->ComparesText};
    state.Budget.Spend(CostOfTexts(base[in.A], base[in.B]));
    return Holds(OperatorOf(in), base[in.A], base[in.B], facts);
}

bool SlowCompareConstant(MachineState& state, Instruction in, const Value& left) {
    const OperandFacts facts{(in.Flags & kLeftIsVariant) != 0, false, state.Program->ComparesText};
    state.Budget.Spend(CostOfTexts(left, state.Program->Constants[in.B]));
    return Holds(OperatorOf(in), left, state.Program->Constants[in.B], facts);
}

void CompareConstant(MachineState& state, Instruction in, Value* base) {
    const OperandFacts facts{(in.Flags & kLeftIsVariant) != 0, false, state.Program->ComparesText};
    base[in.A] = Apply(OperatorOf(in), base[in.B], state.Program->Constants[in.C], facts);
}

void SlowAppend(MachineState& state, Instruction in, Value* base) {
    const bool isReference = in.Flags != 0;
    Value& target = isReference ? *TargetOf(base[in.A]) : base[in.A];
    const Value& addition = base[in.B];
    state.Budget.Spend(SizeOf(addition) / kBytesOfAUnit + (isReference ? 1 : 0));
    const bool isFree = !isReference || TagOf(base[in.A]) == ReferenceTag::Variant;
    if (isFree ||
        (TagOf(base[in.A]) == ReferenceTag::Typed && target.Type() == ValueType::String)) {
        ConcatenateTo(target, addition);
    } else {
        StoreThrough(base[in.A], Apply(BinaryOperator::Concatenate, target, addition, {}));
    }
}

}  // namespace dorvik::basic::modOperations
