#include "LValueCompiler.h"

#include "ArgumentCompiler.h"
#include "ExpressionCompiler.h"
#include "MemberCompiler.h"
#include "NameResolver.h"
#include "OperandCompiler.h"
#include "OperandTypes.h"
#include "VariableCompiler.h"
#include "basic/syntax/Parser.h"

namespace dorvik::basic {

void LValueCompiler::ReferTo(
    const Expression& expression,
    const LValue& lvalue,
    Register target,
    std::vector<AfterCall>& after) {
    if (lvalue.IsVariable) {
        if (lvalue.Variable.IsNew && !lvalue.Type.IsArray) {
            Variables().EnsureNew(lvalue.Variable);
        }
        Variables().ReferTo(lvalue.Variable, target);
        return;
    }
    if (const auto* index = std::get_if<IndexNode>(&expression.Node)) {
        const Register pin = m_code.TemporaryGeneric();
        ReferToElement(HolderOf(*index->Target), index->Arguments, pin, target);
        AfterCall unpin;
        unpin.Slot = pin;
        after.push_back(unpin);
        return;
    }
    const auto& member = std::get<MemberNode>(expression.Node);
    const Operand record = Members().TargetOf(member.Target.get(), expression.Place);
    const int number = Members().FindRecordMember(record.Type.Record, member.Name);
    m_code.Emit(
        Opcode::ReferenceMember,
        target,
        Operands().SlotOf(record),
        static_cast<Register>(number),
        TagOf(lvalue.Type));
}

void LValueCompiler::ReferToElement(
    const Operand& array, const std::vector<Argument>& indices, Register pin, Register target) {
    m_code.Emit(Opcode::Move, pin, Operands().SlotOf(array));
    const std::size_t count = indices.size();
    const Register first = m_code.PushArguments(count);
    for (std::size_t i = 0; i < count; ++i) {
        Arguments().EvaluateShared(&indices[i], static_cast<Register>(first + i));
    }
    m_code.Emit(Opcode::ReferenceElement, target, pin, first, static_cast<std::uint8_t>(count));
    m_code.PopArguments(count);
    if (array.MakesObjects) {
        m_code.Emit(Opcode::EnsureObject, target, static_cast<Register>(array.Type.Class));
    }
}

Operand LValueCompiler::HolderOf(const Expression& expression) {
    const auto* index = std::get_if<IndexNode>(&expression.Node);
    if (!LValueOf(expression).IsAssignable) {
        Operand given = Expressions().Evaluate(expression);
        const bool mayBeArray = given.Type.IsArray || (given.Type.Kind == DeclaredKind::Variant &&
                                                       given.Constant == nullptr);
        if (!mayBeArray) {
            return given;
        }
        Operand copy = given;
        copy.Slot = m_code.TemporaryGeneric();
        m_code.Emit(Opcode::DeepCopy, copy.Slot, given.Slot, 0, 1);
        return copy;
    }
    if (index == nullptr) {
        return Expressions().Evaluate(expression);
    }
    const Operand outer = HolderOf(*index->Target);
    const Operand element = Members().ElementOf(outer, index->Arguments, expression.Place);
    if (!outer.Type.IsArray && element.Constant == nullptr) {
        m_code.Emit(Opcode::CopyGiven, element.Slot, outer.Slot);
    }
    return element;
}

LValue LValueCompiler::LValueOfMember(const MemberNode& node) {
    LValue lvalue;
    DeclaredType record;
    if (!node.Target) {
        record =
            m_context.Blocks.Withs.empty() ? DeclaredType{} : m_context.Blocks.Withs.back().Type;
    } else if (
        Names().ExtensionOf(node.Target.get()) != nullptr ||
        Names().EnumMemberOf(node) != nullptr) {
        return lvalue;
    } else {
        record = LValueOf(*node.Target).Type;
    }
    if (!IsRecord(record)) {
        return lvalue;
    }
    const int number = Members().FindRecordMember(record.Record, node.Name);
    if (number < 0) {
        return lvalue;
    }
    const VariableShape& shape =
        m_scope.RecordAt(record.Record).Members[static_cast<std::size_t>(number)].Shape;
    lvalue.IsAssignable = true;
    lvalue.Type = shape.Type;
    lvalue.IsFixedArray = shape.IsFixedArray;
    return lvalue;
}

const Expression& LValueCompiler::WithoutEmptyParentheses(const Expression& expression) {
    const auto* index = std::get_if<IndexNode>(&expression.Node);
    if (index == nullptr || !index->Arguments.empty()) {
        return expression;
    }
    if (const auto* name = std::get_if<NameNode>(&index->Target->Node)) {
        if (Names().ResolveCallee(name->Name, name->Suffix).What != NameMeaning::Kind::Variable) {
            return expression;
        }
    }
    const LValue lvalue = LValueOf(*index->Target);
    const bool mayBeArray = lvalue.Type.IsArray || lvalue.Type.Kind == DeclaredKind::Variant;
    return lvalue.IsAssignable && mayBeArray ? *index->Target : expression;
}

LValue LValueCompiler::LValueOf(const Expression& expression) {
    LValue lvalue;
    if (const auto* name = std::get_if<NameNode>(&expression.Node)) {
        const NameMeaning meaning = Names().VariableOrImplicit(*name, expression.Place);
        lvalue.IsAssignable = lvalue.IsVariable = meaning.What == NameMeaning::Kind::Variable;
        lvalue.Variable = meaning.Variable;
        lvalue.Type = meaning.Variable.Type;
        lvalue.IsFixedArray = meaning.Variable.IsFixedArray;
        return lvalue;
    }
    if (const auto* member = std::get_if<MemberNode>(&expression.Node)) {
        return LValueOfMember(*member);
    }
    const auto* index = std::get_if<IndexNode>(&expression.Node);
    if (index == nullptr || index->Arguments.empty() ||
        index->Arguments.size() > static_cast<std::size_t>(kMostDimensions)) {
        return lvalue;
    }
    for (const Argument& argument : index->Arguments) {
        if (!argument.Value || !argument.Name.empty()) {
            return lvalue;
        }
    }
    if (const auto* name = std::get_if<NameNode>(&index->Target->Node)) {
        if (Names().ResolveCallee(name->Name, name->Suffix).What != NameMeaning::Kind::Variable) {
            return lvalue;
        }
    }
    const LValue target = LValueOf(*index->Target);
    const bool isVariant = IsVariant(target.Type);
    if (!target.IsAssignable || (!target.Type.IsArray && !isVariant)) {
        return lvalue;
    }
    lvalue.IsAssignable = true;
    lvalue.Type = target.Type;
    lvalue.Type.IsArray = false;
    return lvalue;
}

}  // namespace dorvik::basic
