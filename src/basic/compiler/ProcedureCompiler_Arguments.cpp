#include "ProcedureCompiler.h"
#include "basic/values/Coercion.h"

namespace dorvik::basic {

namespace {

const Value kMissing = Value::Missing();

bool IsVariant(const DeclaredType& type) {
    return type.Kind == DeclaredKind::Variant && !type.IsArray;
}

bool IsObject(const DeclaredType& type) {
    return type.Kind == DeclaredKind::Object && !type.IsArray;
}

/// Whether a parameter of the first type can refer to a variable of the second.
bool CanRefer(const DeclaredType& parameter, const DeclaredType& place) {
    if (IsVariant(parameter)) {
        return place.IsArray || place.Kind != DeclaredKind::Record;
    }
    if (IsObject(parameter) && IsObject(place)) {
        return true;
    }
    return parameter == place && place.Kind != DeclaredKind::FixedString;
}

std::uint8_t TagOf(const DeclaredType& type) {
    const bool isFixed = type.Kind == DeclaredKind::FixedString && !type.IsArray;
    return static_cast<std::uint8_t>(
        IsVariant(type) ? ReferenceTag::Variant
        : isFixed       ? ReferenceTag::FixedString
                        : ReferenceTag::Typed);
}

}  // namespace

void ProcedureCompiler::ReferenceToVariable(const Variable& variable, Register target) {
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

void ProcedureCompiler::ReferenceTo(
    const Expression& expression,
    const PlaceInfo& info,
    Register target,
    std::vector<AfterCall>& after) {
    if (info.IsVariable) {
        if (info.Variable.IsNew && !info.Type.IsArray) {
            EnsureNew(info.Variable);
        }
        ReferenceToVariable(info.Variable, target);
        return;
    }
    if (const auto* index = std::get_if<IndexNode>(&expression.Node)) {
        const Register pin = m_code.TemporaryGeneric();
        ReferenceToElement(HolderOf(*index->Target), index->Arguments, pin, target);
        AfterCall unpin;
        unpin.Slot = pin;
        after.push_back(unpin);
        return;
    }
    const auto& member = std::get<MemberNode>(expression.Node);
    const Operand record = TargetOf(member.Target.get(), expression.Place);
    const int number = FindRecordMember(record.Type.Record, member.Name);
    m_code.Emit(
        Opcode::ReferenceMember,
        target,
        SlotOf(record),
        static_cast<Register>(number),
        TagOf(info.Type));
}

/// The slot `pin` keeps the array until it is cleared.
void ProcedureCompiler::ReferenceToElement(
    const Operand& array, const std::vector<Argument>& indices, Register pin, Register target) {
    m_code.Emit(Opcode::Move, pin, SlotOf(array));
    const std::size_t count = indices.size();
    const Register first = m_code.PushArguments(count);
    for (std::size_t i = 0; i < count; ++i) {
        EvaluateShared(&indices[i], static_cast<Register>(first + i));
    }
    m_code.Emit(Opcode::ReferenceElement, target, pin, first, static_cast<std::uint8_t>(count));
    m_code.PopArguments(count);
    if (array.MakesObjects) {
        m_code.Emit(Opcode::EnsureObject, target, static_cast<Register>(array.Type.Class));
    }
}

/// The value as it is, sharing whatever the variable holds: for those who only look at it.
void ProcedureCompiler::MoveShared(const Operand& operand, Register slot) {
    if (operand.Type.Kind == DeclaredKind::Record && !operand.Type.IsArray) {
        Error(compileerror::kOther, m_place, "A value of a Type cannot be passed here");
    }
    if (operand.Constant != nullptr) {
        m_code.EmitWide(Opcode::LoadConstant, slot, m_scope.AddConstant(*operand.Constant));
    } else if (operand.Slot != slot) {
        m_code.Emit(Opcode::Move, slot, operand.Slot);
    }
}

/// The value for one who keeps it: objects are shared, arrays copied.
void ProcedureCompiler::MoveCopy(const Operand& operand, Register slot) {
    const bool mayBeArray =
        operand.Type.IsArray || (operand.Type.Kind == DeclaredKind::Variant && !operand.IsTyped);
    if (operand.Constant == nullptr && mayBeArray && operand.Slot != slot) {
        m_code.Emit(Opcode::DeepCopy, slot, operand.Slot, 0, operand.IsFresh ? 1 : 0);
    } else {
        MoveShared(operand, slot);
    }
}

void ProcedureCompiler::EvaluateShared(const Argument* argument, Register slot) {
    const std::size_t mark = m_code.TemporaryMark();
    if (argument == nullptr || !argument->Value) {
        MoveShared(ConstantOperand(&kMissing), slot);
    } else {
        MoveShared(Evaluate(*argument->Value, slot, DeclaredKind::Variant), slot);
    }
    m_code.ReleaseTemporaries(mark);
}

void ProcedureCompiler::EvaluateArgument(const Argument& argument, Register slot) {
    const std::size_t mark = m_code.TemporaryMark();
    if (!argument.Value) {
        MoveShared(ConstantOperand(&kMissing), slot);
    } else {
        MoveCopy(Evaluate(*argument.Value, slot, DeclaredKind::Variant), slot);
    }
    m_code.ReleaseTemporaries(mark);
}

void ProcedureCompiler::PassArgument(
    const Parameter& parameter,
    const Argument* argument,
    Register slot,
    SourcePlace place,
    std::vector<AfterCall>& after) {
    if (argument == nullptr || !argument->Value) {
        if (!parameter.IsOptional) {
            Error(449, place, "The argument '" + parameter.Name + "' is missing");
        }
        PassDefault(parameter, slot);
        return;
    }
    const Expression& expression = WithoutEmptyParentheses(*argument->Value);
    if (parameter.IsByVal) {
        PassByValue(parameter.Type, expression, slot);
        return;
    }
    const bool isTemporary =
        argument->IsByVal || std::holds_alternative<ParenthesisNode>(expression.Node);
    const PlaceInfo info = isTemporary ? PlaceInfo{} : PlaceOf(expression);
    if (info.IsPlace) {
        PassByReference(parameter, expression, info, slot, after);
    } else {
        PassTemporary(parameter, expression, slot);
    }
}

void ProcedureCompiler::PassDefault(const Parameter& parameter, Register slot) {
    if (parameter.IsByVal) {
        MoveInto(ConstantOperand(&parameter.Default), slot, parameter.Type);
        return;
    }
    const Register temporary = TemporaryFor(parameter.Type);
    MoveInto(ConstantOperand(&parameter.Default), temporary, parameter.Type);
    m_code.Emit(Opcode::MakeReference, slot, temporary, 0, TagOf(parameter.Type));
}

void ProcedureCompiler::PassByValue(
    const DeclaredType& type, const Expression& expression, Register slot) {
    const bool wantsValue = std::holds_alternative<ParenthesisNode>(expression.Node);
    if (IsObject(type)) {
        SetInto(Evaluate(expression), slot, type);
    } else if (IsVariant(type) && !wantsValue) {
        MoveCopy(Evaluate(expression, slot, DeclaredKind::Variant), slot);
    } else if (type.IsArray || type.Kind == DeclaredKind::Record) {
        const Operand operand = Evaluate(expression);
        if (operand.Type == type) {
            m_code.Emit(Opcode::DeepCopy, slot, SlotOf(operand), 0, operand.IsFresh ? 1 : 0);
        } else if (
            type.IsArray && (operand.Type.IsArray || operand.Type.Kind == DeclaredKind::Variant)) {
            m_code.Emit(
                Opcode::Coerce,
                slot,
                SlotOf(operand),
                static_cast<Register>(m_scope.AddType(type)));
        } else {
            Error(
                compileerror::kOther,
                expression.Place,
                "The type of this argument is not " + TypeText(type));
        }
    } else {
        EvaluateInto(expression, slot, type);
    }
}

void ProcedureCompiler::PassTemporary(
    const Parameter& parameter, const Expression& expression, Register slot) {
    const Register temporary = TemporaryFor(parameter.Type);
    PassByValue(parameter.Type, expression, temporary);
    m_code.Emit(Opcode::MakeReference, slot, temporary, 0, TagOf(parameter.Type));
}

void ProcedureCompiler::PassByReference(
    const Parameter& parameter,
    const Expression& expression,
    const PlaceInfo& info,
    Register slot,
    std::vector<AfterCall>& after) {
    if (CanRefer(parameter.Type, info.Type)) {
        ReferenceTo(expression, info, slot, after);
        return;
    }
    const bool isRecord = info.Type.Kind == DeclaredKind::Record ||
                          parameter.Type.Kind == DeclaredKind::Record ||
                          (info.Type.IsArray && !IsVariant(parameter.Type)) ||
                          (parameter.Type.IsArray && !IsVariant(info.Type));
    if (isRecord) {
        Error(
            compileerror::kOther,
            expression.Place,
            "The argument '" + parameter.Name +
                "' must be of the type that the procedure declares");
        return;
    }
    if (!IsVariant(info.Type)) {
        m_scope.Messages.Warn(
            expression.Place,
            "The argument '" + parameter.Name + "' is passed by reference as " +
                TypeText(parameter.Type) + " but is " + TypeText(info.Type));
    }
    AfterCall copyBack;
    copyBack.What = AfterCall::Kind::CopyBack;
    copyBack.Reference = m_code.TemporaryGeneric();
    copyBack.Type = info.Type;
    ReferenceTo(expression, info, copyBack.Reference, after);
    Operand present;
    present.Type = info.Type;
    present.IsTyped = !IsVariant(info.Type);
    present.Slot = TemporaryFor(info.Type);
    m_code.Emit(
        IsPlain(info.Type) ? Opcode::LoadReferencePlain : Opcode::LoadReference,
        present.Slot,
        copyBack.Reference);
    copyBack.Slot = TemporaryFor(parameter.Type);
    if (IsObject(parameter.Type)) {
        SetInto(present, copyBack.Slot, parameter.Type);
    } else if (parameter.Type.IsArray) {
        m_code.Emit(
            Opcode::Coerce,
            copyBack.Slot,
            present.Slot,
            static_cast<Register>(m_scope.AddType(parameter.Type)));
    } else {
        MoveInto(present, copyBack.Slot, parameter.Type);
    }
    m_code.Emit(Opcode::MakeReference, slot, copyBack.Slot, 0, TagOf(parameter.Type));
    copyBack.ValueType = parameter.Type;
    after.insert(after.begin(), copyBack);
}

/// The value that a Property Let or Set gets as its last argument.
void ProcedureCompiler::PassNewValue(
    const Parameter& parameter, const Operand& value, bool isSet, Register slot) {
    const Register target = parameter.IsByVal ? slot : TemporaryFor(parameter.Type);
    if (isSet || IsObject(parameter.Type)) {
        SetInto(value, target, parameter.Type);
    } else {
        MoveInto(value, target, parameter.Type);
    }
    if (!parameter.IsByVal) {
        m_code.Emit(Opcode::MakeReference, slot, target, 0, TagOf(parameter.Type));
    }
}

/// The arguments of a ParamArray. Values go in as copies, and back to the variables that they came from.
void ProcedureCompiler::PassRest(
    const std::vector<Argument>& arguments,
    std::size_t firstOfRest,
    Register slot,
    std::vector<AfterCall>& after) {
    const std::size_t count = arguments.size() > firstOfRest ? arguments.size() - firstOfRest : 0;
    const Register array = m_code.TemporaryGeneric();
    const Register first = m_code.PushArguments(count);
    for (std::size_t i = 0; i < count; ++i) {
        const Argument& argument = arguments[firstOfRest + i];
        const auto target = static_cast<Register>(first + i);
        const bool isTemporary = !argument.Value || argument.IsByVal ||
                                 std::holds_alternative<ParenthesisNode>(argument.Value->Node);
        if (isTemporary) {
            EvaluateArgument(argument, target);
            continue;
        }
        const Expression& expression = WithoutEmptyParentheses(*argument.Value);
        const PlaceInfo info = PlaceOf(expression);
        if (!info.IsPlace || info.Type.Kind == DeclaredKind::Record) {
            EvaluateArgument(argument, target);
            continue;
        }
        AfterCall copyBack;
        copyBack.What = AfterCall::Kind::CopyElement;
        copyBack.Reference = m_code.TemporaryGeneric();
        copyBack.Slot = array;
        copyBack.Element = static_cast<std::uint16_t>(i);
        ReferenceTo(expression, info, copyBack.Reference, after);
        // An array goes in itself: its elements are the caller's.
        m_code.Emit(Opcode::LoadReference, target, copyBack.Reference);
        if (i <= UINT16_MAX && !info.Type.IsArray) {
            after.insert(after.begin(), copyBack);
        }
    }
    m_code.Emit(Opcode::ArgumentsToArray, array, first, static_cast<Register>(count));
    m_code.PopArguments(count);
    m_code.Emit(Opcode::Move, slot, array);
}

void ProcedureCompiler::FinishArguments(const std::vector<AfterCall>& after) {
    for (const AfterCall& entry : after) {
        switch (entry.What) {
            case AfterCall::Kind::CopyBack: {
                Operand value;
                value.Slot = entry.Slot;
                value.Type = entry.ValueType;
                value.IsTyped = !IsVariant(entry.ValueType);
                StoreReference(entry.Reference, value, entry.Type, IsObject(entry.ValueType));
                break;
            }
            case AfterCall::Kind::CopyElement:
                m_code.Emit(Opcode::CopyBack, entry.Reference, entry.Slot, entry.Element);
                break;
            case AfterCall::Kind::Unpin: m_code.Emit(Opcode::Clear, entry.Slot); break;
        }
    }
}

}  // namespace dorvik::basic
