#include "KeptValue.h"
#include "basic/operations/ErrorRecovery.h"
#include "basic/operations/Operations.h"
#include "basic/operations/Variables.h"
#include "basic/values/ArrayBody.h"
#include "basic/values/Coercion.h"
#include "basic/values/KnownFailure.h"
#include "basic/values/RuntimeErrors.h"
#include "basic/values/ValueKinds.h"

namespace dorvik::basic::modOperations {

namespace {

/// Arrays that are copied and texts that are read take their time.
std::size_t CostOf(const Value& value) {
    if (value.Type() == ValueType::String) {
        return 1 + value.AsText().size() / 64;
    }
    return value.Type() == ValueType::Array ? 1 + value.AsArray()->Elements().size() / 4 : 1;
}

}  // namespace

void MakeGlobalReference(MachineState& state, Instruction in, Value* base) {
    base[in.A] = TaggedReference(
        &state.Globals[static_cast<std::size_t>(in.Wide())], static_cast<ReferenceTag>(in.Flags));
}

void StoreReferenceVariant(MachineState&, Instruction in, Value* base) {
    StoreThrough(base[in.A], base[in.B]);
}

void AssignVariantSlow(MachineState& state, Instruction in, Value* base) {
    const Value& source = base[in.B];
    CheckUnlocked(base[in.A]);
    if (source.Type() == ValueType::Record || source.IsMissing()) {
        RaiseError(runtimeerror::kTypeMismatch);
    }
    if (source.Type() == ValueType::Array) {
        state.Budget.Spend(CostOf(source));
    }
    base[in.A] =
        source.Type() == ValueType::Object ? LetValue(source) : Kept(source, in.Flags != 0);
}

void SetVariant(MachineState&, Instruction in, Value* base) {
    const Value& source = base[in.B];
    if (source.Type() != ValueType::Object) {
        RaiseError(runtimeerror::kObjectRequired);
    }
    const auto wanted = static_cast<ObjectClass>(in.C);
    if (wanted != ObjectClass::Any && source.AsObject() != nullptr &&
        source.AsObject()->Class() != wanted) {
        RaiseError(runtimeerror::kTypeMismatch);
    }
    CheckUnlocked(base[in.A]);
    base[in.A] = source;
}

void CoerceKnown(MachineState& state, Instruction in, Value* base) {
    const DeclaredKind kind = in.Code == Opcode::CoerceLong      ? DeclaredKind::Long
                              : in.Code == Opcode::CoerceInteger ? DeclaredKind::Integer
                              : in.Code == Opcode::CoerceDouble  ? DeclaredKind::Double
                              : in.Code == Opcode::CoerceBoolean ? DeclaredKind::Boolean
                                                                 : DeclaredKind::String;
    if (kind != DeclaredKind::String || base[in.B].Type() == ValueType::Array) {
        state.Budget.Spend(CostOf(base[in.B]) - 1);
    }
    if (MayHaveKnownFailure(base[in.B]) && state.Frames.HasHandler()) {
        if (const std::int32_t number = KnownFailure(base[in.B], kind); number != 0) {
            Fail(state, number);
            return;
        }
    }
    base[in.A] = CoerceTo(base[in.B], kind);
}

void Coerce(MachineState& state, Instruction in, Value* base) {
    state.Budget.Spend(CostOf(base[in.B]));
    base[in.A] = CoerceTo(base[in.B], state.Program->Types[in.C]);
}

void DeepCopy(MachineState& state, Instruction in, Value* base) {
    if (base[in.B].Type() == ValueType::Array) {
        state.Budget.Spend(CostOf(base[in.B]));
    }
    base[in.A] = Kept(base[in.B], in.Flags != 0);
}

void CopyGiven(MachineState& state, Instruction in, Value* base) {
    Value& element = base[in.A];
    if (base[in.B].Type() != ValueType::Object || element.Type() != ValueType::Array) {
        return;
    }
    state.Budget.Spend(CostOf(element));
    element = Kept(element, true);
}

void MakeVariable(MachineState& state, Instruction in, Value* base) {
    base[in.A] = InitialOf(state, state.Program->Shapes[static_cast<std::size_t>(in.Wide())]);
}

}  // namespace dorvik::basic::modOperations
