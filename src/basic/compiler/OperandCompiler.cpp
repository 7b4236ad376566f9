#include "OperandCompiler.h"

#include "OperandTypes.h"
#include "basic/values/ValueKinds.h"

#include <utility>

namespace dorvik::basic {

namespace {

const Value kMissing = Value::Missing();

}  // namespace

Operand OperandCompiler::Missing() const {
    return ConstantOperand(&kMissing);
}

void OperandCompiler::MoveShared(const Operand& operand, Register slot) {
    if (IsRecord(operand.Type)) {
        Error(compileerror::kOther, m_context.Place, "A value of a Type cannot be passed here");
    }
    if (operand.Constant != nullptr) {
        m_code.EmitWide(Opcode::LoadConstant, slot, m_scope.AddConstant(*operand.Constant));
    } else if (operand.Slot != slot) {
        m_code.Emit(Opcode::Move, slot, operand.Slot);
    }
}

void OperandCompiler::MoveCopy(const Operand& operand, Register slot) {
    const bool mayBeArray =
        operand.Type.IsArray || (operand.Type.Kind == DeclaredKind::Variant && !operand.IsTyped);
    if (operand.Constant == nullptr && mayBeArray && operand.Slot != slot) {
        m_code.Emit(Opcode::DeepCopy, slot, operand.Slot, 0, operand.IsFresh ? 1 : 0);
    } else {
        MoveShared(operand, slot);
    }
}

Operand OperandCompiler::Converted(const Operand& value, const DeclaredType& type, bool isSet) {
    const bool isScalar =
        !value.Type.IsArray && !IsObject(value.Type) && !IsRecord(value.Type) &&
        (value.Type.Kind != DeclaredKind::Variant || value.IsTyped || value.IsScalar);
    const bool isSame = value.Type == type && (IsPlain(type) || type.Kind == DeclaredKind::String);
    Operand result = value;
    if (!isSet && value.Constant == nullptr && (isSame || (IsVariant(type) && isScalar))) {
        return result;
    }
    if (!isSet && value.Constant != nullptr && isSame && IsPlain(type)) {
        result.Slot = SlotOf(value);
        result.Constant = nullptr;
        return result;
    }
    result = {};
    result.Type = type;
    result.IsTyped = !IsVariant(type) || !isSet;
    result.IsFresh = true;
    result.Slot = TemporaryFor(type);
    if (isSet) {
        SetInto(value, result.Slot, type);
    } else {
        MoveInto(value, result.Slot, type);
    }
    return result;
}

Register OperandCompiler::TemporaryFor(const DeclaredType& type) {
    return IsPlain(type) ? m_code.TemporaryPlain() : m_code.TemporaryGeneric();
}

Operand OperandCompiler::ConstantOperand(const Value* value) const {
    Operand operand;
    operand.Constant = value;
    operand.Type.Kind = KindOf(value->Type());
    operand.IsTyped = operand.Type.Kind != DeclaredKind::Variant;
    operand.IsFresh = true;
    return operand;
}

Operand OperandCompiler::Fold(Value value) {
    m_folded.push_back(std::move(value));
    return ConstantOperand(&m_folded.back());
}

Operand OperandCompiler::Nothing() {
    return Fold(Value());
}

Register OperandCompiler::SlotOf(const Operand& operand) {
    if (operand.Constant == nullptr) {
        return operand.Slot;
    }
    if (IsPlain(operand.Type)) {
        return m_code.ConstantSlot(*operand.Constant);
    }
    const Register slot = m_code.TemporaryGeneric();
    m_code.EmitWide(Opcode::LoadConstant, slot, m_scope.AddConstant(*operand.Constant));
    return slot;
}

Register OperandCompiler::LongSlotOf(const Operand& operand) {
    if (operand.Constant != nullptr && IsWholeKind(operand.Type.Kind)) {
        return m_code.ConstantSlot(Value::Long(operand.Constant->AsLong()));
    }
    const Register slot = SlotOf(operand);
    if (IsWholeKind(operand.Type.Kind) && !operand.Type.IsArray) {
        return slot;
    }
    const Register result = m_code.TemporaryPlain();
    m_code.Emit(Opcode::CoerceLong, result, slot);
    return result;
}

Register OperandCompiler::DoubleSlotOf(const Operand& operand) {
    if (operand.Constant != nullptr && IsWholeKind(operand.Type.Kind)) {
        return m_code.ConstantSlot(Value::Double(operand.Constant->AsLong()));
    }
    const Register slot = SlotOf(operand);
    if (operand.Type.Kind == DeclaredKind::Double) {
        return slot;
    }
    const Register result = m_code.TemporaryPlain();
    m_code.Emit(
        IsWholeKind(operand.Type.Kind) ? Opcode::LongToDouble : Opcode::CoerceDouble, result, slot);
    return result;
}

Register OperandCompiler::ResultSlot(DeclaredKind kind, ResultHint hint) {
    if (hint.Slot != kNoSlot && kind == hint.Kind) {
        return hint.Slot;
    }
    return IsPlainKind(kind) ? m_code.TemporaryPlain() : m_code.TemporaryGeneric();
}

std::optional<std::int16_t> OperandCompiler::SmallConstant(const Operand& operand) const {
    if (operand.Constant == nullptr || !IsWholeKind(operand.Type.Kind)) {
        return std::nullopt;
    }
    const std::int32_t number = operand.Constant->AsLong();
    if (!IsSmall(number)) {
        return std::nullopt;
    }
    return static_cast<std::int16_t>(number);
}

Operand OperandCompiler::Stable(const Operand& operand) {
    if (operand.Constant != nullptr || operand.IsFresh) {
        return operand;
    }
    Operand copy = operand;
    copy.Slot = TemporaryFor(operand.Type);
    m_code.Emit(IsPlain(operand.Type) ? Opcode::MovePlain : Opcode::Move, copy.Slot, operand.Slot);
    return copy;
}

bool OperandCompiler::MoveConstant(const Value& value, Register target, const DeclaredType& type) {
    const DeclaredKind kind = KindOf(value.Type());
    if (type.Kind == DeclaredKind::Long && IsWholeKind(kind)) {
        m_code.EmitWide(Opcode::LoadLong, target, value.AsLong());
    } else if (type.Kind == DeclaredKind::Double && IsWholeKind(kind)) {
        m_code.Emit(Opcode::MovePlain, target, m_code.ConstantSlot(Value::Double(value.AsLong())));
    } else if (IsPlainKind(type.Kind) && kind == type.Kind) {
        m_code.Emit(Opcode::MovePlain, target, m_code.ConstantSlot(value));
    } else if (
        (type.Kind == DeclaredKind::Variant && kind != DeclaredKind::Object) ||
        (type.Kind == DeclaredKind::String && kind == DeclaredKind::String)) {
        m_code.EmitWide(Opcode::LoadConstant, target, m_scope.AddConstant(value));
    } else {
        return false;
    }
    return true;
}

void OperandCompiler::MoveInto(const Operand& operand, Register target, const DeclaredType& type) {
    if (IsRecord(operand.Type)) {
        Error(compileerror::kOther, m_context.Place, "A value of a Type cannot be used here");
    }
    if (operand.Constant != nullptr && MoveConstant(*operand.Constant, target, type)) {
        return;
    }
    const Register slot = SlotOf(operand);
    const bool isSame = operand.Type == type;
    switch (type.Kind) {
        case DeclaredKind::Variant: {
            const bool isScalar =
                !operand.Type.IsArray && operand.Type.Kind != DeclaredKind::Object &&
                (operand.Type.Kind != DeclaredKind::Variant || operand.IsTyped || operand.IsScalar);
            if (isScalar) {
                m_code.Emit(Opcode::Move, target, slot);
            } else {
                m_code.Emit(Opcode::AssignVariant, target, slot, 0, operand.IsFresh ? 1 : 0);
            }
            return;
        }
        case DeclaredKind::Long:
            m_code.Emit(isSame ? Opcode::MovePlain : Opcode::CoerceLong, target, slot);
            return;
        case DeclaredKind::Integer:
            m_code.Emit(isSame ? Opcode::MovePlain : Opcode::CoerceInteger, target, slot);
            return;
        case DeclaredKind::Double:
            m_code.Emit(isSame ? Opcode::MovePlain : Opcode::CoerceDouble, target, slot);
            return;
        case DeclaredKind::Boolean:
            m_code.Emit(isSame ? Opcode::MovePlain : Opcode::CoerceBoolean, target, slot);
            return;
        case DeclaredKind::String:
            m_code.Emit(isSame ? Opcode::Move : Opcode::CoerceString, target, slot);
            return;
        case DeclaredKind::Byte:
        case DeclaredKind::Single:
        case DeclaredKind::Currency:
        case DeclaredKind::Date:
            if (isSame) {
                m_code.Emit(Opcode::MovePlain, target, slot);
                return;
            }
            break;
        case DeclaredKind::FixedString:
        case DeclaredKind::Object:
        case DeclaredKind::Record: break;
    }
    m_code.Emit(Opcode::Coerce, target, slot, static_cast<Register>(m_scope.AddType(type)));
}

void OperandCompiler::SetInto(const Operand& operand, Register target, const DeclaredType& type) {
    const auto which = type.Kind == DeclaredKind::Object ? type.Class : ObjectClass::Any;
    m_code.Emit(Opcode::SetVariant, target, SlotOf(operand), static_cast<Register>(which));
}

std::optional<std::uint16_t> OperandCompiler::TextConstant(const Operand& operand) {
    if (operand.Constant == nullptr || operand.Constant->Type() != ValueType::String) {
        return std::nullopt;
    }
    const auto index = m_scope.AddConstant(*operand.Constant);
    if (static_cast<std::int64_t>(index) > UINT16_MAX) {
        return std::nullopt;
    }
    return static_cast<std::uint16_t>(index);
}

}  // namespace dorvik::basic
