#include "ArgumentCompiler.h"

#include "ExpressionCompiler.h"
#include "LValueCompiler.h"
#include "OperandCompiler.h"
#include "OperandTypes.h"
#include "VariableCompiler.h"
#include "basic/values/RuntimeErrors.h"
#include "basic/values/ValueKinds.h"

#include <algorithm>

namespace dorvik::basic {

namespace {

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

}  // namespace

bool ArgumentCompiler::HasNames(const std::vector<Argument>& arguments) {
    return std::any_of(arguments.begin(), arguments.end(), [](const Argument& argument) {
        return !argument.Name.empty();
    });
}

void ArgumentCompiler::EvaluateShared(const Argument* argument, Register slot) {
    const std::size_t mark = m_code.TemporaryMark();
    if (argument == nullptr || !argument->Value) {
        Operands().MoveShared(Operands().Missing(), slot);
    } else {
        Operands().MoveShared(
            Expressions().Evaluate(*argument->Value, {slot, DeclaredKind::Variant}), slot);
    }
    m_code.ReleaseTemporaries(mark);
}

void ArgumentCompiler::EvaluateCopy(const Argument& argument, Register slot) {
    const std::size_t mark = m_code.TemporaryMark();
    if (!argument.Value) {
        Operands().MoveShared(Operands().Missing(), slot);
    } else {
        Operands().MoveCopy(
            Expressions().Evaluate(*argument.Value, {slot, DeclaredKind::Variant}), slot);
    }
    m_code.ReleaseTemporaries(mark);
}

void ArgumentCompiler::Pass(
    const Parameter& parameter,
    const Argument* argument,
    Register slot,
    SourcePlace place,
    std::vector<AfterCall>& after) {
    if (argument == nullptr || !argument->Value) {
        if (!parameter.IsOptional) {
            Error(
                runtimeerror::kArgumentNotOptional,
                place,
                "The argument '" + parameter.Name + "' is missing");
        }
        PassDefault(parameter, slot);
        return;
    }
    const Expression& expression = LValues().WithoutEmptyParentheses(*argument->Value);
    if (parameter.IsByVal) {
        PassByValue(parameter.Type, expression, slot);
        return;
    }
    const bool isTemporary =
        argument->IsByVal || std::holds_alternative<ParenthesisNode>(expression.Node);
    const LValue lvalue = isTemporary ? LValue{} : LValues().LValueOf(expression);
    if (lvalue.IsAssignable) {
        PassByReference(parameter, expression, lvalue, slot, after);
    } else {
        PassTemporary(parameter, expression, slot);
    }
}

void ArgumentCompiler::PassDefault(const Parameter& parameter, Register slot) {
    if (parameter.IsByVal) {
        Operands().MoveInto(Operands().ConstantOperand(&parameter.Default), slot, parameter.Type);
        return;
    }
    const Register temporary = Operands().TemporaryFor(parameter.Type);
    Operands().MoveInto(Operands().ConstantOperand(&parameter.Default), temporary, parameter.Type);
    m_code.Emit(Opcode::MakeReference, slot, temporary, 0, TagOf(parameter.Type));
}

void ArgumentCompiler::PassByValue(
    const DeclaredType& type, const Expression& expression, Register slot) {
    const bool wantsValue = std::holds_alternative<ParenthesisNode>(expression.Node);
    if (IsObject(type)) {
        Operands().SetInto(Expressions().Evaluate(expression), slot, type);
    } else if (IsVariant(type) && !wantsValue) {
        Operands().MoveCopy(
            Expressions().Evaluate(expression, {slot, DeclaredKind::Variant}), slot);
    } else if (type.IsArray || type.Kind == DeclaredKind::Record) {
        const Operand operand = Expressions().Evaluate(expression);
        if (operand.Type == type) {
            m_code.Emit(
                Opcode::DeepCopy, slot, Operands().SlotOf(operand), 0, operand.IsFresh ? 1 : 0);
        } else if (
            type.IsArray && (operand.Type.IsArray || operand.Type.Kind == DeclaredKind::Variant)) {
            m_code.Emit(
                Opcode::Coerce,
                slot,
                Operands().SlotOf(operand),
                static_cast<Register>(m_scope.AddType(type)));
        } else {
            Error(
                compileerror::kOther,
                expression.Place,
                "The type of this argument is not " + TypeText(type));
        }
    } else {
        Expressions().EvaluateInto(expression, slot, type);
    }
}

void ArgumentCompiler::PassTemporary(
    const Parameter& parameter, const Expression& expression, Register slot) {
    const Register temporary = Operands().TemporaryFor(parameter.Type);
    PassByValue(parameter.Type, expression, temporary);
    m_code.Emit(Opcode::MakeReference, slot, temporary, 0, TagOf(parameter.Type));
}

void ArgumentCompiler::PassByReference(
    const Parameter& parameter,
    const Expression& expression,
    const LValue& lvalue,
    Register slot,
    std::vector<AfterCall>& after) {
    if (CanRefer(parameter.Type, lvalue.Type)) {
        LValues().ReferTo(expression, lvalue, slot, after);
        return;
    }
    const bool isRecord = lvalue.Type.Kind == DeclaredKind::Record ||
                          parameter.Type.Kind == DeclaredKind::Record ||
                          (lvalue.Type.IsArray && !IsVariant(parameter.Type)) ||
                          (parameter.Type.IsArray && !IsVariant(lvalue.Type));
    if (isRecord) {
        Error(
            compileerror::kOther,
            expression.Place,
            "The argument '" + parameter.Name +
                "' must be of the type that the procedure declares");
        return;
    }
    if (!IsVariant(lvalue.Type)) {
        m_scope.Messages.Warn(
            expression.Place,
            "The argument '" + parameter.Name + "' is passed by reference as " +
                TypeText(parameter.Type) + " but is " + TypeText(lvalue.Type));
    }
    AfterCall copyBack;
    copyBack.What = AfterCall::Kind::CopyBack;
    copyBack.Reference = m_code.TemporaryGeneric();
    copyBack.Type = lvalue.Type;
    LValues().ReferTo(expression, lvalue, copyBack.Reference, after);
    Operand present;
    present.Type = lvalue.Type;
    present.IsTyped = !IsVariant(lvalue.Type);
    present.Slot = Operands().TemporaryFor(lvalue.Type);
    m_code.Emit(
        IsPlain(lvalue.Type) ? Opcode::LoadReferencePlain : Opcode::LoadReference,
        present.Slot,
        copyBack.Reference);
    copyBack.Slot = Operands().TemporaryFor(parameter.Type);
    if (IsObject(parameter.Type)) {
        Operands().SetInto(present, copyBack.Slot, parameter.Type);
    } else if (parameter.Type.IsArray) {
        m_code.Emit(
            Opcode::Coerce,
            copyBack.Slot,
            present.Slot,
            static_cast<Register>(m_scope.AddType(parameter.Type)));
    } else {
        Operands().MoveInto(present, copyBack.Slot, parameter.Type);
    }
    m_code.Emit(Opcode::MakeReference, slot, copyBack.Slot, 0, TagOf(parameter.Type));
    copyBack.ValueType = parameter.Type;
    after.insert(after.begin(), copyBack);
}

void ArgumentCompiler::PassNewValue(
    const Parameter& parameter, const Operand& value, bool isSet, Register slot) {
    const Register target = parameter.IsByVal ? slot : Operands().TemporaryFor(parameter.Type);
    if (isSet || IsObject(parameter.Type)) {
        Operands().SetInto(value, target, parameter.Type);
    } else {
        Operands().MoveInto(value, target, parameter.Type);
    }
    if (!parameter.IsByVal) {
        m_code.Emit(Opcode::MakeReference, slot, target, 0, TagOf(parameter.Type));
    }
}

void ArgumentCompiler::PassRest(
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
            EvaluateCopy(argument, target);
            continue;
        }
        const Expression& expression = LValues().WithoutEmptyParentheses(*argument.Value);
        const LValue lvalue = LValues().LValueOf(expression);
        if (!lvalue.IsAssignable || lvalue.Type.Kind == DeclaredKind::Record) {
            EvaluateCopy(argument, target);
            continue;
        }
        AfterCall copyBack;
        copyBack.What = AfterCall::Kind::CopyElement;
        copyBack.Reference = m_code.TemporaryGeneric();
        copyBack.Slot = array;
        copyBack.Element = static_cast<std::uint16_t>(i);
        LValues().ReferTo(expression, lvalue, copyBack.Reference, after);
        // An array goes in itself: its elements are the caller's.
        m_code.Emit(Opcode::LoadReference, target, copyBack.Reference);
        if (i <= UINT16_MAX && !lvalue.Type.IsArray) {
            after.insert(after.begin(), copyBack);
        }
    }
    m_code.Emit(Opcode::ArgumentsToArray, array, first, static_cast<Register>(count));
    m_code.PopArguments(count);
    m_code.Emit(Opcode::Move, slot, array);
}

void ArgumentCompiler::Finish(const std::vector<AfterCall>& after) {
    for (const AfterCall& entry : after) {
        switch (entry.What) {
            case AfterCall::Kind::CopyBack: {
                Operand value;
                value.Slot = entry.Slot;
                value.Type = entry.ValueType;
                value.IsTyped = !IsVariant(entry.ValueType);
                Variables().StoreReference(
                    entry.Reference, value, entry.Type, IsObject(entry.ValueType));
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
