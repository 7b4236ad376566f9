#include "basic/machine/Machine.h"
#include "basic/values/Coercion.h"
#include "basic/values/Operators.h"
#include "basic/values/RuntimeErrors.h"
#include "basic/values/ValueKinds.h"

#include <algorithm>
#include <utility>

namespace dorvik::basic {

namespace {

constexpr std::size_t kBytesOfAUnit = 64;  // of text that is copied

void RefuseNull(const Value& value) {
    if (value.Type() == ValueType::Null) {
        RaiseError(runtimeerror::kInvalidUseOfNull);
    }
}

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

bool IsWhole(const Value& value) {
    return value.Type() == ValueType::Integer || value.Type() == ValueType::Long;
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

}  // namespace

void Machine::SlowOperator(Instruction in, Value* base) {
    const Value& left = base[in.B];
    const Value& right = base[in.C];
    if (in.Code == Opcode::Concatenate) {
        Spend((SizeOf(left) + SizeOf(right)) / kBytesOfAUnit);
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
    Operate(in, base);
}

void Machine::Operate(Instruction in, Value* base) {
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
        m_program->ComparesText};
    Spend(CostOfTexts(base[in.B], base[in.C]));
    base[in.A] = Apply(OperatorOf(in), base[in.B], base[in.C], facts);
}

void Machine::OperateUnary(Instruction in, Value* base) {
    const UnaryOperator which = in.Code == Opcode::Negate ? UnaryOperator::Negate
                                : in.Code == Opcode::Plus ? UnaryOperator::Plus
                                                          : UnaryOperator::Not;
    Spend(SizeOf(base[in.B]) / kBytesOfAUnit);
    base[in.A] = Apply(which, base[in.B], in.Flags != 0);
}

bool Machine::SlowCompare(Instruction in, Value* base) {
    const OperandFacts facts{
        (in.Flags & kLeftIsVariant) != 0,
        (in.Flags & kRightIsVariant) != 0,
        m_program->ComparesText};
    Spend(CostOfTexts(base[in.A], base[in.B]));
    return Holds(OperatorOf(in), base[in.A], base[in.B], facts);
}

bool Machine::SlowCompareConstant(Instruction in, const Value& left) {
    const OperandFacts facts{(in.Flags & kLeftIsVariant) != 0, false, m_program->ComparesText};
    Spend(CostOfTexts(left, m_program->Constants[in.B]));
    return Holds(OperatorOf(in), left, m_program->Constants[in.B], facts);
}

void Machine::CompareConstant(Instruction in, Value* base) {
    const OperandFacts facts{(in.Flags & kLeftIsVariant) != 0, false, m_program->ComparesText};
    base[in.A] = Apply(OperatorOf(in), base[in.B], m_program->Constants[in.C], facts);
}

void Machine::SlowAppend(Instruction in, Value* base) {
    const bool isReference = in.Flags != 0;
    Value& target = isReference ? *TargetOf(base[in.A]) : base[in.A];
    const Value& addition = base[in.B];
    Spend(SizeOf(addition) / kBytesOfAUnit + (isReference ? 1 : 0));
    const bool isFree = !isReference || TagOf(base[in.A]) == ReferenceTag::Variant;
    if (isFree ||
        (TagOf(base[in.A]) == ReferenceTag::Typed && target.Type() == ValueType::String)) {
        ConcatenateTo(target, addition);
    } else {
        StoreThrough(base[in.A], Apply(BinaryOperator::Concatenate, target, addition, {}));
    }
}

bool Machine::ForContinues(const Value& counter, const Value& limit, const Value& step) {
    if (IsWhole(counter) && IsWhole(limit) && IsWhole(step)) {
        return step.AsLong() >= 0 ? counter.AsLong() <= limit.AsLong()
                                  : counter.AsLong() >= limit.AsLong();
    }
    RefuseNull(counter);
    RefuseNull(limit);
    RefuseNull(step);
    const OperandFacts facts{false, false, m_program->ComparesText};
    const bool isDownwards = Holds(BinaryOperator::Less, step, Value::Integer(0), facts);
    return Holds(
        isDownwards ? BinaryOperator::GreaterOrEqual : BinaryOperator::LessOrEqual,
        counter,
        limit,
        facts);
}

/// The limit is in its slot already; a loop that was not begun has none.
void Machine::ForBounds(Instruction in, Value* base) {
    const Value limit = std::exchange(base[in.A], Value());
    RefuseNull(base[in.B]);
    RefuseNull(limit);
    RefuseNull(base[in.C]);
    base[in.A] = limit.Type() == ValueType::Empty ? Value::Integer(0) : limit;
}

bool Machine::SlowForLoop(Instruction in, Value* base) {
    Value& counter = base[in.A];
    const Value& step = base[in.C];
    if (counter.Type() == ValueType::Integer && step.Type() == ValueType::Integer) {
        const std::int32_t sum = counter.AsLong() + step.AsLong();
        if (sum == static_cast<std::int16_t>(sum)) {
            counter.PutInteger(static_cast<std::int16_t>(sum));
            return ForContinues(counter, base[in.B], step);
        }
    } else if (counter.Type() == ValueType::Long && IsWhole(step)) {
        std::int32_t sum = 0;
        if (!__builtin_add_overflow(counter.AsLong(), step.AsLong(), &sum)) {
            counter.PutLong(sum);
            return ForContinues(counter, base[in.B], step);
        }
    }
    const bool isTyped = in.Flags == 0;
    Value sum =
        Apply(BinaryOperator::Add, counter, step, {!isTyped, !isTyped, m_program->ComparesText});
    if (isTyped && sum.Type() != counter.Type()) {
        sum = CoerceTo(sum, KindOf(counter.Type()));
    }
    counter = std::move(sum);
    return ForContinues(counter, base[in.B], step);
}

}  // namespace dorvik::basic
