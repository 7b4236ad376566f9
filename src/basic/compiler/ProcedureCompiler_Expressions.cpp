#include "ProcedureCompiler.h"
#include "basic/values/Coercion.h"

namespace dorvik::basic {

std::string TypeText(const DeclaredType& type) {
    static constexpr const char* kNames[] = {
        "Variant",
        "Byte",
        "Boolean",
        "Integer",
        "Long",
        "Single",
        "Double",
        "Currency",
        "Date",
        "String",
        "String",
        "Object",
        "Type"};
    const std::string name = kNames[static_cast<std::size_t>(type.Kind)];
    return type.IsArray ? name + "()" : name;
}

Register ProcedureCompiler::TemporaryFor(const DeclaredType& type) {
    return IsPlain(type) ? m_code.TemporaryPlain() : m_code.TemporaryGeneric();
}

Operand ProcedureCompiler::ConstantOperand(const Value* value) const {
    Operand operand;
    operand.Constant = value;
    operand.Type.Kind = KindOf(value->Type());
    operand.IsTyped = operand.Type.Kind != DeclaredKind::Variant;
    operand.IsFresh = true;
    return operand;
}

Operand ProcedureCompiler::Fold(Value value) {
    m_folded.push_back(std::move(value));
    return ConstantOperand(&m_folded.back());
}

/// What stands in for an expression with an error.
Operand ProcedureCompiler::Nothing() {
    return Fold(Value());
}

Register ProcedureCompiler::SlotOf(const Operand& operand) {
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

Register ProcedureCompiler::LongSlotOf(const Operand& operand) {
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

Register ProcedureCompiler::DoubleSlotOf(const Operand& operand) {
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

Register ProcedureCompiler::ResultSlot(DeclaredKind kind, Register hint, DeclaredKind hintKind) {
    if (hint != kNoSlot && kind == hintKind) {
        return hint;
    }
    return IsPlainKind(kind) ? m_code.TemporaryPlain() : m_code.TemporaryGeneric();
}

std::optional<std::int16_t> ProcedureCompiler::SmallConstant(const Operand& operand) const {
    if (operand.Constant == nullptr || !IsWholeKind(operand.Type.Kind)) {
        return std::nullopt;
    }
    const std::int32_t number = operand.Constant->AsLong();
    if (number < -32'767 || number > 32'767) {
        return std::nullopt;
    }
    return static_cast<std::int16_t>(number);
}

/// A copy of the value if it stands in a variable, which code that runs before its use may change.
Operand ProcedureCompiler::Stable(const Operand& operand) {
    if (operand.Constant != nullptr || operand.IsFresh) {
        return operand;
    }
    Operand copy = operand;
    copy.Slot = TemporaryFor(operand.Type);
    m_code.Emit(IsPlain(operand.Type) ? Opcode::MovePlain : Opcode::Move, copy.Slot, operand.Slot);
    return copy;
}

bool ProcedureCompiler::MayRunCode(const std::vector<Argument>& arguments) {
    for (const Argument& argument : arguments) {
        if (argument.Value && MayRunCode(*argument.Value)) {
            return true;
        }
    }
    return false;
}

/// Whether the expression may call something that changes a variable.
bool ProcedureCompiler::MayRunCode(const Expression& expression) {
    const auto inPart = [this](const ExpressionPointer& part) {
        return part && MayRunCode(*part);
    };
    if (const auto* name = std::get_if<NameNode>(&expression.Node)) {
        return ResolveCallee(name->Name, 0).What == NameMeaning::Kind::Procedure &&
               Resolve(name->Name, 0).What == NameMeaning::Kind::Procedure;
    }
    if (const auto* inner = std::get_if<ParenthesisNode>(&expression.Node)) {
        return inPart(inner->Inner);
    }
    if (const auto* unary = std::get_if<UnaryNode>(&expression.Node)) {
        return inPart(unary->Operand);
    }
    if (const auto* binary = std::get_if<BinaryNode>(&expression.Node)) {
        return inPart(binary->Left) || inPart(binary->Right);
    }
    if (const auto* member = std::get_if<MemberNode>(&expression.Node)) {
        return inPart(member->Target) || ExtensionOf(member->Target.get()) != nullptr;
    }
    if (const auto* index = std::get_if<IndexNode>(&expression.Node)) {
        if (MayRunCode(index->Arguments)) {
            return true;
        }
        const auto* name = std::get_if<NameNode>(&index->Target->Node);
        if (name == nullptr) {
            return inPart(index->Target);
        }
        const auto what = ResolveCallee(name->Name, name->Suffix).What;
        return what == NameMeaning::Kind::Procedure || what == NameMeaning::Kind::Unknown;
    }
    return false;
}

Operand
ProcedureCompiler::Evaluate(const Expression& expression, Register hint, DeclaredKind hintKind) {
    if (const auto* literal = std::get_if<LiteralNode>(&expression.Node)) {
        return ConstantOperand(&literal->Constant);
    }
    if (const auto* inner = std::get_if<ParenthesisNode>(&expression.Node)) {
        return Evaluate(*inner->Inner, hint, hintKind);
    }
    if (const auto* binary = std::get_if<BinaryNode>(&expression.Node)) {
        return EvaluateBinary(*binary, hint, hintKind);
    }
    return EvaluateNode(expression, hint, hintKind);
}

Operand ProcedureCompiler::EvaluateNode(const Expression& expression, Register, DeclaredKind) {
    if (const auto* name = std::get_if<NameNode>(&expression.Node)) {
        return EvaluateName(expression, *name);
    }
    if (const auto* index = std::get_if<IndexNode>(&expression.Node)) {
        return EvaluateIndex(expression, *index);
    }
    if (const auto* member = std::get_if<MemberNode>(&expression.Node)) {
        return EvaluateMember(expression, *member, nullptr);
    }
    if (const auto* bang = std::get_if<BangNode>(&expression.Node)) {
        return EvaluateBang(*bang, expression.Place);
    }
    if (const auto* unary = std::get_if<UnaryNode>(&expression.Node)) {
        return EvaluateUnary(*unary, expression.Place);
    }
    if (const auto* created = std::get_if<NewNode>(&expression.Node)) {
        return EvaluateNew(*created, expression.Place);
    }
    if (const auto* test = std::get_if<TypeOfNode>(&expression.Node)) {
        return EvaluateTypeOf(*test, expression.Place);
    }
    return Nothing();
}

Operand ProcedureCompiler::EvaluateName(const Expression& expression, const NameNode& node) {
    return EvaluateSymbol(VariableOrImplicit(node, expression.Place), node.Name, expression.Place);
}

Operand ProcedureCompiler::EvaluateSymbol(
    const NameMeaning& meaning, const std::string& name, SourcePlace place) {
    switch (meaning.What) {
        case NameMeaning::Kind::Variable: return Load(meaning.Variable);
        case NameMeaning::Kind::Constant:
            return meaning.Constant ? ConstantOperand(meaning.Constant) : Nothing();
        case NameMeaning::Kind::Procedure:
        case NameMeaning::Kind::External:
        case NameMeaning::Kind::Builtin: return CallSymbol(meaning, name, {}, place, true);
        case NameMeaning::Kind::ErrObject: {
            Operand operand;
            operand.Slot = m_code.TemporaryGeneric();
            operand.Type = {DeclaredKind::Object, ObjectClass::Err};
            m_code.Emit(Opcode::LoadErr, operand.Slot);
            return operand;
        }
        case NameMeaning::Kind::Extension:
            Error(
                compileerror::kOther,
                place,
                "'" + name + "' is no value: a point and the name of a member must follow");
            return Nothing();
        case NameMeaning::Kind::Type:
            Error(compileerror::kOther, place, "'" + name + "' is a type, not a value");
            return Nothing();
        case NameMeaning::Kind::Unknown: break;
    }
    return Nothing();
}

Operand ProcedureCompiler::EvaluateNew(const NewNode& node, SourcePlace place) {
    ObjectClass which = ObjectClass::Any;
    if (!ModuleScope::FindClass(node.ClassName, which)) {
        Error(compileerror::kOther, place, "The class '" + node.ClassName + "' is not defined");
        return Nothing();
    }
    Operand operand;
    operand.Slot = m_code.TemporaryGeneric();
    operand.Type = {DeclaredKind::Object, which};
    operand.IsFresh = true;
    m_code.Emit(Opcode::NewObject, operand.Slot, static_cast<Register>(which));
    return operand;
}

Operand ProcedureCompiler::EvaluateTypeOf(const TypeOfNode& node, SourcePlace place) {
    ObjectClass which = ObjectClass::Any;
    if (node.ClassName != "Object" && !ModuleScope::FindClass(node.ClassName, which)) {
        Error(compileerror::kOther, place, "The class '" + node.ClassName + "' is not defined");
    }
    const Register object = SlotOf(Evaluate(*node.Operand));
    Operand result;
    result.Slot = m_code.TemporaryPlain();
    result.Type.Kind = DeclaredKind::Boolean;
    result.IsTyped = true;
    m_code.Emit(Opcode::TypeOf, result.Slot, object, static_cast<Register>(which));
    return result;
}

void ProcedureCompiler::EvaluateInto(
    const Expression& expression, Register target, const DeclaredType& type) {
    const DeclaredKind hintKind =
        type.Kind == DeclaredKind::FixedString ? DeclaredKind::Object : type.Kind;
    const Operand operand = Evaluate(expression, target, hintKind);
    if (operand.Constant != nullptr || operand.Slot != target) {
        MoveInto(operand, target, type);
    }
}

bool ProcedureCompiler::MoveConstant(
    const Value& value, Register target, const DeclaredType& type) {
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

/// Let-assignment of a value to a slot of its own type: coerced, with a copy where others share it.
void ProcedureCompiler::MoveInto(
    const Operand& operand, Register target, const DeclaredType& type) {
    if (operand.Type.Kind == DeclaredKind::Record && !operand.Type.IsArray) {
        Error(compileerror::kOther, m_place, "A value of a Type cannot be used here");
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

void ProcedureCompiler::SetInto(const Operand& operand, Register target, const DeclaredType& type) {
    const auto which = type.Kind == DeclaredKind::Object ? type.Class : ObjectClass::Any;
    m_code.Emit(Opcode::SetVariant, target, SlotOf(operand), static_cast<Register>(which));
}

}  // namespace dorvik::basic
