#include "LoopState.h"
#include "basic/machine/Machine.h"
#include "basic/values/ArrayBody.h"
#include "basic/values/Coercion.h"
#include "basic/values/Operators.h"
#include "basic/values/RecordBody.h"
#include "basic/values/RuntimeErrors.h"
#include "basic/values/TextBytes.h"
#include "basic/values/ValueKinds.h"

namespace dorvik::basic {

namespace {

constexpr std::size_t kMostDimensions = 60;

ReferenceTag TagOfElement(const DeclaredType& type) {
    return type.Kind == DeclaredKind::Variant       ? ReferenceTag::Variant
           : type.Kind == DeclaredKind::FixedString ? ReferenceTag::FixedString
                                                    : ReferenceTag::Typed;
}

/// REQUIRES: an object or Nothing.
ScriptObject& ObjectWithDefault(const Value& value) {
    if (value.AsObject() == nullptr) {
        RaiseError(runtimeerror::kObjectNotSet);
    }
    if (!value.AsObject()->HasDefaultMember()) {
        RaiseError(runtimeerror::kNoSuchMember);
    }
    return *value.AsObject();
}

void CheckFree(const ArrayBody& array) {
    if (array.IsLocked()) {
        RaiseError(runtimeerror::kArrayFixedOrLocked);
    }
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

}  // namespace

std::size_t Machine::OffsetOf(const ArrayBody& array, std::span<const Value> indices) {
    if (indices.size() > kMostDimensions) {
        RaiseError(runtimeerror::kSubscriptOutOfRange);
    }
    std::array<std::int32_t, kMostDimensions> numbers{};
    for (std::size_t i = 0; i < indices.size(); ++i) {
        numbers[i] = ToLong(indices[i]);
    }
    return array.Offset(numbers.data(), indices.size());
}

Value Machine::ElementFrom(const Value& array, std::span<const Value> indices) {
    const ArrayBody& body = *array.AsArray();
    return body.Elements()[OffsetOf(body, indices)];
}

void Machine::StoreElement(ArrayBody& array, std::size_t place, const Value& value, bool isSet) {
    Value& element = array.Elements()[place];
    const DeclaredType& type = array.Element();
    if (type.Kind == DeclaredKind::Object && !isSet) {
        const Value object = element;
        ObjectWithDefault(object).Invoke(kDefaultMember, InvokeKind::Let, {&value, 1});
    } else if (type.Kind == DeclaredKind::Variant) {
        if (element.Type() == ValueType::Array) {
            CheckFree(*element.AsArray());
        }
        element = value;
    } else if (type.Kind == DeclaredKind::Record) {
        const bool fits =
            value.Type() == ValueType::Record && value.AsRecord()->Type() == type.Record;
        if (!fits) {
            RaiseError(runtimeerror::kTypeMismatch);
        }
        CopyRecord(*element.AsRecord(), *value.AsRecord());
    } else {
        element = CoerceTo(value, type);
    }
}

void Machine::SlowIndexGet(Instruction in, Value* base) {
    const Value target = base[in.B];
    const std::span<const Value> index(&base[in.C], 1);
    if (target.Type() == ValueType::Array) {
        base[in.A] = ElementFrom(target, index);
        return;
    }
    if (target.Type() != ValueType::Object) {
        RaiseError(runtimeerror::kTypeMismatch);
    }
    ScriptObject& object = ObjectWithDefault(target);
    if (object.Class() == ObjectClass::Collection && index[0].Type() == ValueType::String) {
        // The loop has looked for it. That a key is not there is often asked in this way.
        Fail(runtimeerror::kInvalidProcedureCall);
        return;
    }
    base[in.A] = object.Invoke(kDefaultMember, InvokeKind::Get, index);
}

void Machine::SlowIndexSet(Instruction in, Value* base) {
    const Value target = base[in.A];
    if (target.Type() == ValueType::Array) {
        const std::size_t place = OffsetOf(*target.AsArray(), {&base[in.B], 1});
        StoreElement(*target.AsArray(), place, base[in.C], in.Flags != 0);
        return;
    }
    if (target.Type() != ValueType::Object) {
        RaiseError(runtimeerror::kTypeMismatch);
    }
    const Value arguments[] = {base[in.B], base[in.C]};
    ObjectWithDefault(target).Invoke(
        kDefaultMember, in.Flags != 0 ? InvokeKind::Set : InvokeKind::Let, arguments);
}

void Machine::ReferenceElement(Instruction in, Value* base) {
    Value& holder = base[in.B];
    const std::span<Value> indices(&base[in.C], in.Flags);
    if (holder.Type() == ValueType::Array) {
        Ref<ArrayBody> array(holder.AsArray());
        const std::size_t place = OffsetOf(*array, indices);
        Value& element = array->Elements()[place];
        const ReferenceTag tag = TagOfElement(array->Element());
        holder = Value::Object(MakeRef<ArrayPin>(std::move(array)));
        base[in.A] = TaggedReference(&element, tag);
    } else if (holder.Type() == ValueType::Object) {
        // What an object gives is no variable: a temporary takes its place, with a copy of an array.
        const Value object = holder;
        Value given = ObjectWithDefault(object).Invoke(kDefaultMember, InvokeKind::Get, indices);
        const bool isKept = given.Type() == ValueType::Array && given.AsArray()->IsShared();
        if (isKept) {
            Spend(given.AsArray()->Elements().size() / 4);
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

void Machine::DimensionArray(Instruction in, Value* base) {
    Value& target = *TargetOf(base[in.A]);
    const DeclaredType& type = m_program->Types[in.B];
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
        CheckFree(*target.AsArray());
        if (target.AsArray()->IsFixed()) {
            RaiseError(runtimeerror::kArrayFixedOrLocked);
        }
    }
    const Value initial = InitialElement(type);
    const bool keepsBody = isArray && target.AsArray()->Element() == type;
    Ref<ArrayBody> array =
        keepsBody ? Ref<ArrayBody>(target.AsArray()) : MakeRef<ArrayBody>(type, false);
    if (preserves && keepsBody && !array->Dimensions().empty()) {
        array->Redimension(std::move(dimensions), initial);
    } else {
        array->Dimension(std::move(dimensions), initial);
    }
    const std::size_t cost = array->Elements().size() / 4;
    if (!keepsBody) {
        target = Value::Array(std::move(array));
    }
    Spend(cost);
}

void Machine::EraseArray(Instruction in, Value* base) {
    Value& target = *TargetOf(base[in.A]);
    if (target.Type() != ValueType::Array) {
        RaiseError(runtimeerror::kTypeMismatch);
    }
    ArrayBody& array = *target.AsArray();
    CheckFree(array);
    if (array.IsFixed()) {
        ResetElements(array, InitialElement(array.Element()));
    } else {
        array.Clear();
    }
}

void Machine::AssignArray(Instruction in, Value* base) {
    Value& target = *TargetOf(base[in.A]);
    const Value& source = base[in.B];
    DeclaredType element = m_program->Types[in.C];
    element.IsArray = false;
    const bool isText = source.Type() != ValueType::Array && element.Kind == DeclaredKind::Byte;
    if (!isText && (source.Type() != ValueType::Array || source.AsArray()->Element() != element)) {
        RaiseError(runtimeerror::kTypeMismatch);
    }
    if (target.Type() == ValueType::Array) {
        CheckFree(*target.AsArray());
        if (target.AsArray()->IsFixed()) {
            RaiseError(runtimeerror::kArrayFixedOrLocked);
        }
    }
    if (isText) {
        const std::string bytes = modTextBytes::BytesIn(source);
        Spend(bytes.size() / 4);
        target = modTextBytes::ArrayOf(bytes);
        return;
    }
    Spend(source.AsArray()->Elements().size() / 4);
    const bool canTake =
        in.Flags != 0 && !source.AsArray()->IsShared() && !source.AsArray()->IsFixed();
    target = canTake ? source : Value::Array(source.AsArray()->Copy(false));
}

void Machine::ArgumentsToArray(Instruction in, Value* base) {
    DeclaredType variant;
    auto array = MakeRef<ArrayBody>(variant, false);
    array->Dimension({{0, std::int32_t{in.C} - 1}}, Value());
    for (std::size_t i = 0; i < in.C; ++i) {
        array->Elements()[i] = std::move(base[in.B + i]);
    }
    base[in.A] = Value::Array(std::move(array));
}

void Machine::CopyBack(Instruction in, Value* base) {
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

void Machine::ForEachBegin(Instruction in, Value* base) {
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

void Machine::HoldArray(Instruction in, Value* base) {
    if (base[in.B].Type() == ValueType::Array) {
        base[in.A] = Value::Object(MakeRef<LoopState>(Ref<ArrayBody>(base[in.B].AsArray())));
    }
}

void Machine::LeaveBlock(Instruction in, Value* base) {
    const Value& state = base[in.A];
    if (state.Type() == ValueType::Object && state.AsObject() != nullptr) {
        static_cast<LoopState*>(state.AsObject())->Leave();
    }
}

void Machine::RefuseLocked(Instruction in, Value* base) {
    if (base[in.A].Type() == ValueType::Array) {
        CheckFree(*base[in.A].AsArray());
    }
}

bool Machine::NextElement(Instruction in, Value* base) {
    const Value& state = base[in.B];
    if (state.Type() != ValueType::Object || state.AsObject() == nullptr) {
        RaiseError(runtimeerror::kForLoopNotInitialised);
    }
    return static_cast<LoopState*>(state.AsObject())->Next(base[in.A]);
}

}  // namespace dorvik::basic
