#include "ExpressionCompiler.h"

#include "CallCompiler.h"
#include "MemberCompiler.h"
#include "NameResolver.h"
#include "OperandCompiler.h"
#include "OperatorCompiler.h"
#include "VariableCompiler.h"

namespace dorvik::basic {

Operand ExpressionCompiler::EvaluateIndex(const Expression& expression, const IndexNode& node) {
    if (const auto* name = std::get_if<NameNode>(&node.Target->Node)) {
        return EvaluateIndexedName(expression, *name, node);
    }
    if (const auto* member = std::get_if<MemberNode>(&node.Target->Node)) {
        return Members().EvaluateMember(*node.Target, *member, &node.Arguments);
    }
    return Members().ElementOf(Evaluate(*node.Target), node.Arguments, expression.Place);
}

Operand ExpressionCompiler::EvaluateIndexedName(
    const Expression& expression, const NameNode& name, const IndexNode& node) {
    const NameMeaning meaning = Names().ResolveCallee(name.Name, name.Suffix);
    switch (meaning.What) {
        case NameMeaning::Kind::Variable:
            return Members().ElementOf(
                Variables().Load(meaning.Variable), node.Arguments, expression.Place);
        case NameMeaning::Kind::Procedure:
        case NameMeaning::Kind::External:
        case NameMeaning::Kind::Builtin:
            return Calls().CallSymbol(meaning, name.Name, node.Arguments, expression.Place, true);
        case NameMeaning::Kind::Unknown:
            Error(
                compileerror::kNotDefined,
                node.Target->Place,
                "Sub, Function or array '" + name.Name + "' is not defined");
            return Operands().Nothing();
        case NameMeaning::Kind::Constant:
        case NameMeaning::Kind::Extension:
        case NameMeaning::Kind::ErrObject:
        case NameMeaning::Kind::Type:
            return Members().ElementOf(
                EvaluateSymbol(meaning, name.Name, expression.Place),
                node.Arguments,
                expression.Place);
    }
    return Operands().Nothing();
}

bool ExpressionCompiler::MayRunCode(const std::vector<Argument>& arguments) {
    for (const Argument& argument : arguments) {
        if (argument.Value && MayRunCode(*argument.Value)) {
            return true;
        }
    }
    return false;
}

bool ExpressionCompiler::MayRunCode(const Expression& expression) {
    const auto inPart = [this](const ExpressionPointer& part) {
        return part && MayRunCode(*part);
    };
    if (const auto* name = std::get_if<NameNode>(&expression.Node)) {
        return Names().ResolveCallee(name->Name, 0).What == NameMeaning::Kind::Procedure &&
               Names().Resolve(name->Name, 0).What == NameMeaning::Kind::Procedure;
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
        return inPart(member->Target) || Names().ExtensionOf(member->Target.get()) != nullptr;
    }
    if (const auto* index = std::get_if<IndexNode>(&expression.Node)) {
        if (MayRunCode(index->Arguments)) {
            return true;
        }
        const auto* name = std::get_if<NameNode>(&index->Target->Node);
        if (name == nullptr) {
            return inPart(index->Target);
        }
        const auto what = Names().ResolveCallee(name->Name, name->Suffix).What;
        return what == NameMeaning::Kind::Procedure || what == NameMeaning::Kind::Unknown;
    }
    return false;
}

Operand ExpressionCompiler::Evaluate(const Expression& expression, ResultHint hint) {
    if (const auto* literal = std::get_if<LiteralNode>(&expression.Node)) {
        return Operands().ConstantOperand(&literal->Constant);
    }
    if (const auto* inner = std::get_if<ParenthesisNode>(&expression.Node)) {
        return Evaluate(*inner->Inner, hint);
    }
    if (const auto* binary = std::get_if<BinaryNode>(&expression.Node)) {
        return Operators().EvaluateBinary(*binary, hint);
    }
    return EvaluateNode(expression);
}

Operand ExpressionCompiler::EvaluateNode(const Expression& expression) {
    if (const auto* name = std::get_if<NameNode>(&expression.Node)) {
        return EvaluateName(expression, *name);
    }
    if (const auto* index = std::get_if<IndexNode>(&expression.Node)) {
        return EvaluateIndex(expression, *index);
    }
    if (const auto* member = std::get_if<MemberNode>(&expression.Node)) {
        return Members().EvaluateMember(expression, *member, nullptr);
    }
    if (const auto* bang = std::get_if<BangNode>(&expression.Node)) {
        return Members().EvaluateBang(*bang, expression.Place);
    }
    if (const auto* unary = std::get_if<UnaryNode>(&expression.Node)) {
        return Operators().EvaluateUnary(*unary);
    }
    if (const auto* created = std::get_if<NewNode>(&expression.Node)) {
        return EvaluateNew(*created, expression.Place);
    }
    if (const auto* test = std::get_if<TypeOfNode>(&expression.Node)) {
        return EvaluateTypeOf(*test, expression.Place);
    }
    return Operands().Nothing();
}

Operand ExpressionCompiler::EvaluateName(const Expression& expression, const NameNode& node) {
    return EvaluateSymbol(
        Names().VariableOrImplicit(node, expression.Place), node.Name, expression.Place);
}

Operand ExpressionCompiler::EvaluateSymbol(
    const NameMeaning& meaning, const std::string& name, SourcePlace place) {
    switch (meaning.What) {
        case NameMeaning::Kind::Variable: return Variables().Load(meaning.Variable);
        case NameMeaning::Kind::Constant:
            return meaning.Constant ? Operands().ConstantOperand(meaning.Constant)
                                    : Operands().Nothing();
        case NameMeaning::Kind::Procedure:
        case NameMeaning::Kind::External:
        case NameMeaning::Kind::Builtin: return Calls().CallSymbol(meaning, name, {}, place, true);
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
                "'" + name + "' is not a value: a point and the name of a member must follow");
            return Operands().Nothing();
        case NameMeaning::Kind::Type:
            Error(compileerror::kOther, place, "'" + name + "' is a type, not a value");
            return Operands().Nothing();
        case NameMeaning::Kind::Unknown: break;
    }
    return Operands().Nothing();
}

Operand ExpressionCompiler::EvaluateNew(const NewNode& node, SourcePlace place) {
    ObjectClass which = ObjectClass::Any;
    if (!ModuleScope::FindClass(node.ClassName, which)) {
        Error(compileerror::kOther, place, "The class '" + node.ClassName + "' is not defined");
        return Operands().Nothing();
    }
    Operand operand;
    operand.Slot = m_code.TemporaryGeneric();
    operand.Type = {DeclaredKind::Object, which};
    operand.IsFresh = true;
    m_code.Emit(Opcode::NewObject, operand.Slot, static_cast<Register>(which));
    return operand;
}

Operand ExpressionCompiler::EvaluateTypeOf(const TypeOfNode& node, SourcePlace place) {
    ObjectClass which = ObjectClass::Any;
    if (node.ClassName != "Object" && !ModuleScope::FindClass(node.ClassName, which)) {
        Error(compileerror::kOther, place, "The class '" + node.ClassName + "' is not defined");
    }
    const Register object = Operands().SlotOf(Evaluate(*node.Operand));
    Operand result;
    result.Slot = m_code.TemporaryPlain();
    result.Type.Kind = DeclaredKind::Boolean;
    result.IsTyped = true;
    m_code.Emit(Opcode::TypeOf, result.Slot, object, static_cast<Register>(which));
    return result;
}

void ExpressionCompiler::EvaluateInto(
    const Expression& expression, Register target, const DeclaredType& type) {
    const DeclaredKind hintKind =
        type.Kind == DeclaredKind::FixedString ? DeclaredKind::Object : type.Kind;
    const Operand operand = Evaluate(expression, {target, hintKind});
    if (operand.Constant != nullptr || operand.Slot != target) {
        Operands().MoveInto(operand, target, type);
    }
}

std::optional<std::int32_t> ExpressionCompiler::LongConstantOf(const Expression& expression) {
    if (const auto* inner = std::get_if<ParenthesisNode>(&expression.Node)) {
        return LongConstantOf(*inner->Inner);
    }
    const Value* value = nullptr;
    bool isNegative = false;
    const Expression* source = &expression;
    if (const auto* unary = std::get_if<UnaryNode>(&source->Node);
        unary && unary->Operator == UnaryOperator::Negate) {
        isNegative = true;
        source = unary->Operand.get();
    }
    if (const auto* literal = std::get_if<LiteralNode>(&source->Node)) {
        value = &literal->Constant;
    } else if (const auto* name = std::get_if<NameNode>(&source->Node)) {
        const NameMeaning meaning = Names().Resolve(name->Name, name->Suffix);
        value = meaning.What == NameMeaning::Kind::Constant ? meaning.Constant : nullptr;
    } else if (const auto* member = std::get_if<MemberNode>(&source->Node)) {
        value = Names().EnumMemberOf(*member);
    }
    const bool isWhole =
        value != nullptr && (value->Type() == ValueType::Integer ||
                             value->Type() == ValueType::Long || value->Type() == ValueType::Byte);
    if (!isWhole) {
        return std::nullopt;
    }
    const bool isLowest = value->AsLong() == INT16_MIN || value->AsLong() == INT32_MIN;
    if (isNegative && isLowest) {
        return std::nullopt;  // an overflow, which only a run may tell
    }
    return isNegative ? -value->AsLong() : value->AsLong();
}

}  // namespace dorvik::basic
