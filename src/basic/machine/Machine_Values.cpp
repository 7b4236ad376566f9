#include "base/BasicError.h"
#include "basic/machine/Machine.h"
#include "basic/values/ArrayBody.h"
#include "basic/values/Coercion.h"
#include "basic/values/KnownFailure.h"
#include "basic/values/RecordBody.h"
#include "basic/values/RuntimeErrors.h"
#include "basic/values/ValueKinds.h"

#include <cstring>

namespace dorvik::basic {

namespace {

/// The value for one who keeps it; `isFresh` says that it stands in a slot that nobody reads again.
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

/// Arrays that are copied and texts that are read take their time.
std::size_t CostOf(const Value& value) {
    if (value.Type() == ValueType::String) {
        return 1 + value.AsText().size() / 64;
    }
    return value.Type() == ValueType::Array ? 1 + value.AsArray()->Elements().size() / 4 : 1;
}

}  // namespace

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

void Machine::MakeGlobalReference(Instruction in, Value* base) {
    base[in.A] = TaggedReference(
        &m_globals[static_cast<std::size_t>(in.Wide())], static_cast<ReferenceTag>(in.Flags));
}

void Machine::StoreReferenceVariant(Instruction in, Value* base) {
    StoreThrough(base[in.A], base[in.B]);
}

/// Assigns to the variable behind a reference whose type only the reference knows.
void Machine::StoreThrough(Value& reference, const Value& value) {
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

void Machine::AssignVariantSlow(Instruction in, Value* base) {
    const Value& source = base[in.B];
    CheckUnlocked(base[in.A]);
    if (source.Type() == ValueType::Record || source.IsMissing()) {
        RaiseError(runtimeerror::kTypeMismatch);
    }
    if (source.Type() == ValueType::Array) {
        Spend(CostOf(source));
    }
    base[in.A] =
        source.Type() == ValueType::Object ? LetValue(source) : Kept(source, in.Flags != 0);
}

void Machine::SetVariant(Instruction in, Value* base) {
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

void Machine::CoerceKnown(Instruction in, Value* base) {
    const DeclaredKind kind = in.Code == Opcode::CoerceLong      ? DeclaredKind::Long
                              : in.Code == Opcode::CoerceInteger ? DeclaredKind::Integer
                              : in.Code == Opcode::CoerceDouble  ? DeclaredKind::Double
                              : in.Code == Opcode::CoerceBoolean ? DeclaredKind::Boolean
                                                                 : DeclaredKind::String;
    if (kind != DeclaredKind::String || base[in.B].Type() == ValueType::Array) {
        Spend(CostOf(base[in.B]) - 1);
    }
    if (MayHaveKnownFailure(base[in.B]) && HasHandler()) {
        if (const std::int32_t number = KnownFailure(base[in.B], kind); number != 0) {
            Fail(number);
            return;
        }
    }
    base[in.A] = CoerceTo(base[in.B], kind);
}

void Machine::Coerce(Instruction in, Value* base) {
    Spend(CostOf(base[in.B]));
    base[in.A] = CoerceTo(base[in.B], m_program->Types[in.C]);
}

void Machine::DeepCopy(Instruction in, Value* base) {
    if (base[in.B].Type() == ValueType::Array) {
        Spend(CostOf(base[in.B]));
    }
    base[in.A] = Kept(base[in.B], in.Flags != 0);
}

void Machine::CopyGiven(Instruction in, Value* base) {
    Value& element = base[in.A];
    if (base[in.B].Type() != ValueType::Object || element.Type() != ValueType::Array) {
        return;
    }
    Spend(CostOf(element));
    element = Kept(element, true);
}

void Machine::MakeVariable(Instruction in, Value* base) {
    base[in.A] = InitialOf(m_program->Shapes[static_cast<std::size_t>(in.Wide())]);
}

Value Machine::InitialRecord(std::int32_t type) {
    const RecordType& record = m_program->Records[static_cast<std::size_t>(type)];
    Spend(record.Members.size());
    std::vector<Value> members;
    members.reserve(record.Members.size());
    for (const RecordMember& member : record.Members) {
        members.push_back(InitialOf(member.Shape));
    }
    return Value::Record(MakeRef<RecordBody>(type, std::move(members)));
}

Value Machine::InitialElement(const DeclaredType& type) {
    return type.Kind == DeclaredKind::Record ? InitialRecord(type.Record) : InitialValue(type);
}

Value Machine::InitialOf(const VariableShape& shape) {
    if (!shape.Type.IsArray) {
        return InitialElement(shape.Type);
    }
    DeclaredType element = shape.Type;
    element.IsArray = false;
    auto array = MakeRef<ArrayBody>(element, shape.IsFixedArray);
    if (shape.IsFixedArray) {
        array->Dimension(shape.Dimensions, InitialElement(element));
        Spend(array->Elements().size() / 4);
    }
    return Value::Array(std::move(array));
}

}  // namespace dorvik::basic
