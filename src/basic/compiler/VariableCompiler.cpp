#include "VariableCompiler.h"

#include "OperandCompiler.h"
#include "OperandTypes.h"
#include "basic/values/ValueKinds.h"

namespace dorvik::basic {

void VariableCompiler::ReferTo(const Variable& variable, Register target) {
    switch (variable.Where) {
        case Storage::Local:
            m_code.Emit(
                Opcode::MakeReference,
                target,
                static_cast<Register>(variable.Index),
                0,
                TagOf(variable.Type));
            break;
        case Storage::Reference:
            m_code.Emit(Opcode::Move, target, static_cast<Register>(variable.Index));
            break;
        case Storage::Global:
            m_code.EmitWide(
                Opcode::MakeGlobalReference, target, variable.Index, TagOf(variable.Type));
            break;
    }
}

void VariableCompiler::RejectIfLocked(Register variable) {
    for (const HeldBlock& block : m_context.Blocks.Held) {
        if (block.Variable == variable) {
            m_code.Emit(Opcode::RefuseLocked, variable);
            return;
        }
    }
}

void VariableCompiler::CheckSet(const DeclaredType& type, bool isSet) {
    if (isSet && !IsVariant(type) && !IsObject(type)) {
        Error(compileerror::kOther, m_context.Place, "'Set' needs an object variable on the left");
    }
}

void VariableCompiler::Store(const Variable& variable, const Operand& value, bool isSet) {
    const DeclaredType& type = variable.Type;
    CheckSet(type, isSet);
    const auto index = static_cast<Register>(variable.Index);
    if (variable.Where == Storage::Local) {
        RejectIfLocked(index);
        if (isSet) {
            Operands().SetInto(value, index, type);
        } else {
            Operands().MoveInto(value, index, type);
        }
        return;
    }
    const Operand converted = Operands().Converted(value, type, isSet);
    const Register slot = Operands().SlotOf(converted);
    if (variable.Where == Storage::Global) {
        m_code.EmitWide(
            IsPlain(type) ? Opcode::StoreGlobalPlain : Opcode::StoreGlobal, slot, variable.Index);
    } else if (IsVariant(type)) {
        m_code.Emit(Opcode::StoreReferenceVariant, index, slot);
    } else {
        m_code.Emit(
            IsPlain(type) ? Opcode::StoreReferencePlain : Opcode::StoreReference, index, slot);
    }
}

void VariableCompiler::StoreReference(
    Register reference, const Operand& value, const DeclaredType& type, bool isSet) {
    if (type.IsArray) {
        m_code.Emit(
            Opcode::AssignArray,
            reference,
            Operands().SlotOf(value),
            static_cast<Register>(m_scope.AddType(type)),
            value.IsFresh ? 1 : 0);
        return;
    }
    const Register slot = Operands().SlotOf(Operands().Converted(value, type, isSet));
    if (IsVariant(type)) {
        m_code.Emit(Opcode::StoreReferenceVariant, reference, slot);
    } else {
        m_code.Emit(
            IsPlain(type) ? Opcode::StoreReferencePlain : Opcode::StoreReference, reference, slot);
    }
}

void VariableCompiler::EnsureNew(const Variable& variable) {
    const bool isLocal = variable.Where == Storage::Local;
    const auto slot = isLocal ? static_cast<Register>(variable.Index) : m_code.TemporaryGeneric();
    if (!isLocal) {
        ReferTo(variable, slot);
    }
    m_code.Emit(
        Opcode::EnsureObject, slot, static_cast<Register>(variable.Type.Class), 0, isLocal ? 1 : 0);
}

Operand VariableCompiler::Load(const Variable& variable) {
    Operand operand;
    operand.Type = variable.Type;
    operand.IsTyped = variable.Type.Kind != DeclaredKind::Variant || variable.Type.IsArray;
    operand.MakesObjects = variable.IsNew && variable.Type.IsArray;
    if (variable.IsNew && !variable.Type.IsArray) {
        EnsureNew(variable);
    }
    const bool isPlain = IsPlain(variable.Type);
    switch (variable.Where) {
        case Storage::Local: operand.Slot = static_cast<Register>(variable.Index); break;
        case Storage::Reference:
            operand.Slot = Operands().TemporaryFor(variable.Type);
            m_code.Emit(
                isPlain ? Opcode::LoadReferencePlain : Opcode::LoadReference,
                operand.Slot,
                static_cast<Register>(variable.Index));
            break;
        case Storage::Global:
            operand.Slot = Operands().TemporaryFor(variable.Type);
            m_code.EmitWide(
                isPlain ? Opcode::LoadGlobalPlain : Opcode::LoadGlobal,
                operand.Slot,
                variable.Index);
            break;
    }
    return operand;
}

}  // namespace dorvik::basic
