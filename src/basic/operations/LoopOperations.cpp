#include "LoopState.h"
#include "basic/operations/Operations.h"
#include "basic/values/ArrayBody.h"
#include "basic/values/Coercion.h"
#include "basic/values/Operators.h"
#include "basic/values/RuntimeErrors.h"
#include "basic/values/ValueKinds.h"

#include <utility>

namespace dorvik::basic::modOperations {

namespace {

void RefuseNull(const Value& value) {
    if (value.Type() == ValueType::Null) {
        RaiseError(runtimeerror::kInvalidUseOfNull);
    }
}

bool IsWhole(const Value& value) {
    return value.Type() == ValueType::Integer || value.Type() == ValueType::Long;
}

}  // namespace

bool ForContinues(
    MachineState& state, const Value& counter, const Value& limit, const Value& step) {
    if (IsWhole(counter) && IsWhole(limit) && IsWhole(step)) {
        return step.AsLong() >= 0 ? counter.AsLong() <= limit.AsLong()
                                  : counter.AsLong() >= limit.AsLong();
    }
    RefuseNull(counter);
    RefuseNull(limit);
    RefuseNull(step);
    const OperandFacts facts{false, false, state.Program->ComparesText};
    const bool isDownwards = Holds(BinaryOperator::Less, step, Value::Integer(0), facts);
    return Holds(
        isDownwards ? BinaryOperator::GreaterOrEqual : BinaryOperator::LessOrEqual,
        counter,
        limit,
        facts);
}

/// The limit is in its slot already; a loop that was not begun has none.
void ForBounds(MachineState&, Instruction in, Value* base) {
    const Value limit = std::exchange(base[in.A], Value());
    RefuseNull(base[in.B]);
    RefuseNull(limit);
    RefuseNull(base[in.C]);
    base[in.A] = limit.Type() == ValueType::Empty ? Value::Integer(0) : limit;
}

bool SlowForLoop(MachineState& state, Instruction in, Value* base) {
    Value& counter = base[in.A];
    const Value& step = base[in.C];
    if (base[in.B].Type() == ValueType::Empty) {
        RaiseError(runtimeerror::kForLoopNotInitialised);
    }
    if (counter.Type() == ValueType::Integer && step.Type() == ValueType::Integer) {
        const std::int32_t sum = counter.AsLong() + step.AsLong();
        if (sum == static_cast<std::int16_t>(sum)) {
            counter.PutInteger(static_cast<std::int16_t>(sum));
            return ForContinues(state, counter, base[in.B], step);
        }
    } else if (counter.Type() == ValueType::Long && IsWhole(step)) {
        std::int32_t sum = 0;
        if (!__builtin_add_overflow(counter.AsLong(), step.AsLong(), &sum)) {
            counter.PutLong(sum);
            return ForContinues(state, counter, base[in.B], step);
        }
    }
    const bool isTyped = in.Flags == 0;
    Value sum = Apply(
        BinaryOperator::Add, counter, step, {!isTyped, !isTyped, state.Program->ComparesText});
    if (isTyped && sum.Type() != counter.Type()) {
        sum = CoerceTo(sum, KindOf(counter.Type()));
    }
    counter = std::move(sum);
    return ForContinues(state, counter, base[in.B], step);
}

void ForEachBegin(MachineState&, Instruction in, Value* base) {
    const Value& collection = base[in.B];
    if (collection.Type() == ValueType::Array) {
        Ref<ArrayBody> array(collection.AsArray());
        if (array->Dimensions().empty()) {
            RaiseError(runtimeerror::kForLoopNotInitialised);
        }
        if (array->Element().Kind == DeclaredKind::Record) {
            RaiseError(runtimeerror::kTypeMismatch);
        }
        base[in.A] = Value::Object(MakeRef<LoopState>(std::move(array)));
        return;
    }
    if (collection.Type() != ValueType::Object) {
        RaiseError(runtimeerror::kTypeMismatch);
    }
    if (collection.AsObject() == nullptr) {
        RaiseError(runtimeerror::kObjectNotSet);
    }
    auto iterator = collection.AsObject()->Iterate();
    if (!iterator) {
        RaiseError(runtimeerror::kNoSuchMember);
    }
    base[in.A] = Value::Object(
        MakeRef<LoopState>(Ref<ScriptObject>(collection.AsObject()), std::move(iterator)));
}

void HoldArray(MachineState&, Instruction in, Value* base) {
    if (base[in.B].Type() == ValueType::Array) {
        base[in.A] = Value::Object(MakeRef<LoopState>(Ref<ArrayBody>(base[in.B].AsArray())));
    }
}

void LeaveBlock(MachineState&, Instruction in, Value* base) {
    const Value& loop = base[in.A];
    if (loop.Type() == ValueType::Object && loop.AsObject() != nullptr) {
        static_cast<LoopState*>(loop.AsObject())->Leave();
    }
}

bool NextElement(MachineState&, Instruction in, Value* base) {
    const Value& loop = base[in.B];
    if (loop.Type() != ValueType::Object || loop.AsObject() == nullptr) {
        RaiseError(runtimeerror::kForLoopNotInitialised);
    }
    return static_cast<LoopState*>(loop.AsObject())->Next(base[in.A]);
}

}  // namespace dorvik::basic::modOperations
