#include "basic/operations/Variables.h"

#include "KeptValue.h"
#include "basic/operations/Reference.h"
#include "basic/values/ArrayBody.h"
#include "basic/values/Coercion.h"
#include "basic/values/RecordBody.h"
#include "basic/values/RuntimeErrors.h"
#include "basic/values/ValueKinds.h"

namespace dorvik::basic {

namespace {

Value InitialRecord(MachineState& state, std::int32_t type) {
    const RecordType& record = state.Program->Records[static_cast<std::size_t>(type)];
    state.Budget.Spend(record.Members.size());
    std::vector<Value> members;
    members.reserve(record.Members.size());
    for (const RecordMember& member : record.Members) {
        members.push_back(InitialOf(state, member.Shape));
    }
    return Value::Record(MakeRef<RecordBody>(type, std::move(members)));
}

}  // namespace

Value Kept(const Value& value, bool isFresh) {
    if (value.Type() != ValueType::Array) {
        return value.DeepCopy();
    }
    const bool canTake = isFresh && !value.AsArray()->IsShared() && !value.AsArray()->IsFixed();
    return canTake ? value : Value::Array(value.AsArray()->Copy(false));
}

void CheckUnlocked(const Value& variable) {
    if (variable.Type() == ValueType::Array && variable.AsArray()->IsLocked()) {
        RaiseError(runtimeerror::kArrayFixedOrLocked);
    }
}

void CopyRecord(RecordBody& target, const RecordBody& source) {
    auto& members = target.Members();
    for (std::size_t i = 0; i < members.size(); ++i) {
        const Value& from = source.Members()[i];
        if (from.Type() == ValueType::Record) {
            CopyRecord(*members[i].AsRecord(), *from.AsRecord());
            continue;
        }
        CheckUnlocked(members[i]);
        members[i] = from.DeepCopy();
    }
}

void StoreThrough(const Value& reference, const Value& value) {
    Value& target = *TargetOf(reference);
    switch (TagOf(reference)) {
        case ReferenceTag::Variant:
            CheckUnlocked(target);
            target = value.Type() == ValueType::Array ? Kept(value, false) : value;
            return;
        case ReferenceTag::FixedString: {
            const auto length = static_cast<std::int32_t>(
                target.TextBody() != nullptr ? target.TextBody()->Length() : 0);
            target = ToFixedText(ToText(value), length);
            return;
        }
        case ReferenceTag::Typed: break;
    }
    if (target.Type() == ValueType::Array) {
        CheckUnlocked(target);
        const bool fits = value.Type() == ValueType::Array && !target.AsArray()->IsFixed() &&
                          value.AsArray()->Element() == target.AsArray()->Element();
        if (!fits) {
            RaiseError(runtimeerror::kTypeMismatch);
        }
        target = Kept(value, false);
        return;
    }
    DeclaredType type;
    type.Kind = KindOf(target.Type());
    if (target.Type() == ValueType::Record || type.Kind == DeclaredKind::Variant) {
        RaiseError(runtimeerror::kTypeMismatch);
    }
    target = CoerceTo(value, type);
}

Value InitialElement(MachineState& state, const DeclaredType& type) {
    return type.Kind == DeclaredKind::Record ? InitialRecord(state, type.Record)
                                             : InitialValue(type);
}

Value InitialOf(MachineState& state, const VariableShape& shape) {
    if (!shape.Type.IsArray) {
        return InitialElement(state, shape.Type);
    }
    DeclaredType element = shape.Type;
    element.IsArray = false;
    auto array = MakeRef<ArrayBody>(element, shape.IsFixedArray);
    if (shape.IsFixedArray) {
        array->Dimension(shape.Dimensions, InitialElement(state, element));
        state.Budget.Spend(array->Elements().size() / 4);
    }
    return Value::Array(std::move(array));
}

}  // namespace dorvik::basic
