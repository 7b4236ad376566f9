#include "ArrayElements.h"
#include "KeptValue.h"
#include "LoopState.h"
#include "basic/operations/ErrorRecovery.h"
#include "basic/operations/Operations.h"
#include "basic/operations/Variables.h"
#include "basic/values/ArrayBody.h"
#include "basic/values/Coercion.h"
#include "basic/values/Operators.h"
#include "basic/values/RecordBody.h"
#include "basic/values/RuntimeErrors.h"
#include "basic/values/TextBytes.h"
#include "basic/values/ValueKinds.h"

namespace dorvik::basic::modOperations {

namespace {

ReferenceTag TagOfElement(const DeclaredType& type) {
    return type.Kind == DeclaredKind::Variant       ? ReferenceTag::Variant
           : type.Kind == DeclaredKind::FixedString ? ReferenceTag::FixedString
                                                    : ReferenceTag::Typed;
}

/// Back to the initial values, in place.
void ResetElements(ArrayBody& array, const Value& initial) {
    for (Value& element : array.Elements()) {
        if (element.Type() == ValueType::Record) {
            CopyRecord(*element.AsRecord(), *initial.AsRecord());
        } else {
            element = initial;
        }
    }
}

/// A text that is an index is read to its end.
void SpendForIndex(MachineState& state, const Value& index) {
    constexpr std::size_t kBytesOfAUnit = 64;
    if (index.Type() == ValueType::String) {
        state.Budget.Spend(index.AsText().size() / kBytesOfAUnit);
    }
}

}  // namespace

void SlowIndexGet(MachineState& state, Instruction in, Value* base) {
    const Value target = base[in.B];
    const std::span<const Value> index(&base[in.C], 1);
    SpendForIndex(state, index[0]);
    if (target.Type() == ValueType::Array) {
        base[in.A] = ElementFrom(target, index);
        return;
    }
    if (target.Type() != ValueType::Object) {
        RaiseError(runtimeerror::kTypeMismatch);
    }
    ScriptObject& object = ObjectWithDefault(target);
    if (object.Class() == ObjectClass::Collection && index[0].Type() == ValueType::String) {
        // The loop has searched for it. Scripts often test in this way whether a key is there.
        Fail(state, runtimeerror::kInvalidProcedureCall);
        return;
    }
    base[in.A] = object.Invoke(kDefaultMember, InvokeKind::Get, index);
}

void SlowIndexSet(MachineState& state, Instruction in, Value* base) {
    const Value target = base[in.A];
    SpendForIndex(state, base[in.B]);
    if (target.Type() == ValueType::Array) {
        const std::size_t offset = OffsetOf(*target.AsArray(), {&base[in.B], 1});
        StoreElement(*target.AsArray(), offset, base[in.C], in.Flags != 0);
        return;
    }
    if (target.Type() != ValueType::Object) {
        RaiseError(runtimeerror::kTypeMismatch);
    }
    const Value arguments[] = {base[in.B], base[in.C]};
    ObjectWithDefault(target).Invoke(
        kDefaultMember, in.Flags != 0 ? InvokeKind::Set : InvokeKind::Let, arguments);
}

void ReferenceElement(MachineState& state, Instruction in, Value* base) {
    Value& holder = base[in.B];
    const std::span<Value> indices(&base[in.C], in.Flags);
    if (holder.Type() == ValueType::Array) {
        Ref<ArrayBody> array(holder.AsArray());
        const std::size_t offset = OffsetOf(*array, indices);
        Value& element = array->Elements()[offset];
        const ReferenceTag tag = TagOfElement(array->Element());
        holder = Value::Object(MakeRef<ArrayPin>(std::move(array)));
        base[in.A] = TaggedReference(&element, tag);
    } else if (holder.Type() == ValueType::Object) {
        // What an object returns is not a variable: a temporary holds it, with a copy of an array.
        const Value object = holder;
        Value given = ObjectWithDefault(object).Invoke(kDefaultMember, InvokeKind::Get, indices);
        const bool isKept = given.Type() == ValueType::Array && given.AsArray()->IsShared();
        if (isKept) {
            state.Budget.Spend(given.AsArray()->Elements().size() / 4);
        }
        holder = isKept ? given.DeepCopy() : std::move(given);
        base[in.A] = TaggedReference(&holder, ReferenceTag::Variant);
    } else {
        RaiseError(runtimeerror::kTypeMismatch);
    }
    for (Value& index : indices) {
        index = Value();
    }
}

void DimensionArray(MachineState& state, Instruction in, Value* base) {
    Value& target = *TargetOf(base[in.A]);
    const DeclaredType& type = state.Program->Types[in.B];
    const bool preserves = (in.Flags & 1) != 0;
    std::vector<Bounds> dimensions;
    for (std::size_t i = 0; i < static_cast<std::size_t>(in.Flags >> 1); ++i) {
        const Bounds bounds{base[in.C + 2 * i].AsLong(), base[in.C + 2 * i + 1].AsLong()};
        if (bounds.Lower > bounds.Upper) {
            RaiseError(runtimeerror::kSubscriptOutOfRange);
        }
        dimensions.push_back(bounds);
    }
    const bool isArray = target.Type() == ValueType::Array;
    if (isArray) {
        CheckUnlocked(target);
        if (target.AsArray()->IsFixed()) {
            RaiseError(runtimeerror::kArrayFixedOrLocked);
        }
    }
    const Value initial = InitialElement(state, type);
    const bool keepsArray = isArray && target.AsArray()->Element() == type;
    Ref<ArrayBody> array =
        keepsArray ? Ref<ArrayBody>(target.AsArray()) : MakeRef<ArrayBody>(type, false);
    if (preserves && keepsArray && !array->Dimensions().empty()) {
        array->Redimension(std::move(dimensions), initial);
    } else {
        array->Dimension(std::move(dimensions), initial);
    }
    const std::size_t cost = array->Elements().size() / 4;
    if (!keepsArray) {
        target = Value::Array(std::move(array));
    }
    state.Budget.Spend(cost);
}

void EraseArray(MachineState& state, Instruction in, Value* base) {
    Value& target = *TargetOf(base[in.A]);
    if (target.Type() != ValueType::Array) {
        RaiseError(runtimeerror::kTypeMismatch);
    }
    ArrayBody& array = *target.AsArray();
    CheckUnlocked(target);
    if (array.IsFixed()) {
        ResetElements(array, InitialElement(state, array.Element()));
    } else {
        array.Clear();
    }
}

void AssignArray(MachineState& state, Instruction in, Value* base) {
    Value& target = *TargetOf(base[in.A]);
    const Value& source = base[in.B];
    DeclaredType element = state.Program->Types[in.C];
    element.IsArray = false;
    const bool isText = source.Type() != ValueType::Array && element.Kind == DeclaredKind::Byte;
    if (!isText && (source.Type() != ValueType::Array || source.AsArray()->Element() != element)) {
        RaiseError(runtimeerror::kTypeMismatch);
    }
    if (target.Type() == ValueType::Array) {
        CheckUnlocked(target);
        if (target.AsArray()->IsFixed()) {
            RaiseError(runtimeerror::kArrayFixedOrLocked);
        }
    }
    if (isText) {
        const std::string bytes = modTextBytes::BytesIn(source);
        state.Budget.Spend(bytes.size() / 4);
        target = modTextBytes::ArrayOf(bytes);
        return;
    }
    state.Budget.Spend(source.AsArray()->Elements().size() / 4);
    const bool canTake =
        in.Flags != 0 && !source.AsArray()->IsShared() && !source.AsArray()->IsFixed();
    target = canTake ? source : Value::Array(source.AsArray()->Copy(false));
}

void ArgumentsToArray(MachineState&, Instruction in, Value* base) {
    DeclaredType variant;
    auto array = MakeRef<ArrayBody>(variant, false);
    array->Dimension({{0, std::int32_t{in.C} - 1}}, Value());
    for (std::size_t i = 0; i < in.C; ++i) {
        array->Elements()[i] = std::move(base[in.B + i]);
    }
    base[in.A] = Value::Array(std::move(array));
}

void CopyBack(MachineState&, Instruction in, Value* base) {
    const ArrayBody& array = *base[in.B].AsArray();
    if (in.C >= array.Elements().size()) {
        return;  // erased meanwhile
    }
    const Value& value = array.Elements()[in.C];
    const Value& present = *TargetOf(base[in.A]);
    const bool isSame =
        value.Type() == present.Type() && value.AsCurrency() == present.AsCurrency();
    if (!isSame) {
        StoreThrough(base[in.A], value);
    }
}

void RefuseLocked(MachineState&, Instruction in, Value* base) {
    CheckUnlocked(base[in.A]);
}

}  // namespace dorvik::basic::modOperations
