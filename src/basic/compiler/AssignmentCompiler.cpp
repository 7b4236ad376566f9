#include "AssignmentCompiler.h"

#include "ArgumentCompiler.h"
#include "ExpressionCompiler.h"
#include "LValueCompiler.h"
#include "NameResolver.h"
#include "OperandCompiler.h"
#include "OperandTypes.h"
#include "OperatorCompiler.h"
#include "StoreCompiler.h"
#include "VariableCompiler.h"

namespace dorvik::basic {

void AssignmentCompiler::Compile(const AssignStatement& node, SourcePlace place) {
    Assign(*node.Target, *node.Value, node.IsSet, place);
}

void AssignmentCompiler::Assign(
    const Expression& written, const Expression& value, bool isSet, SourcePlace place) {
    const Expression& whole = LValues().WithoutEmptyParentheses(written);
    const bool isWhole = &whole != &written && LValues().LValueOf(whole).Type.IsArray;
    const Expression& target = isWhole ? whole : written;
    if (const auto* name = std::get_if<NameNode>(&target.Node)) {
        const NameMeaning meaning = Names().VariableOrImplicit(*name, target.Place);
        if (meaning.What == NameMeaning::Kind::Variable) {
            AssignVariable(meaning.Variable, target, value, isSet);
            return;
        }
    }
    Operand operand = Expressions().Evaluate(value);
    if (Expressions().MayRunCode(target)) {
        operand = Operands().Stable(operand);
    }
    Stores().StoreTo(target, operand, isSet, place);
}

void AssignmentCompiler::AssignVariable(
    const Variable& variable, const Expression& target, const Expression& value, bool isSet) {
    const DeclaredType& type = variable.Type;
    if (type.IsArray || IsRecord(type)) {
        LValue lvalue{true, true, variable, type, variable.IsFixedArray};
        AssignWhole(target, lvalue, Expressions().Evaluate(value));
        return;
    }
    if (isSet) {
        Variables().Store(variable, Expressions().Evaluate(value), true);
        return;
    }
    if (IsObject(type)) {
        // Without Set the value goes to the default member of the object that the variable holds.
        const Operand operand = Operands().Converted(Expressions().Evaluate(value), {}, false);
        Stores().LetDefaultMember(Variables().Load(variable), operand);
        return;
    }
    if (variable.Where == Storage::Local) {
        Variables().RejectIfLocked(static_cast<Register>(variable.Index));
    }
    if (TryAppend(variable, value)) {
        return;
    }
    if (variable.Where == Storage::Local) {
        Expressions().EvaluateInto(value, static_cast<Register>(variable.Index), type);
    } else {
        Variables().Store(variable, Expressions().Evaluate(value), false);
    }
}

/// `s = s & a & b` extends the text of s in place when no one else shares it.
bool AssignmentCompiler::TryAppend(const Variable& variable, const Expression& value) {
    if (variable.Type.Kind != DeclaredKind::String && variable.Type.Kind != DeclaredKind::Variant) {
        return false;
    }
    std::vector<const Expression*> parts;
    const Expression* first = &value;
    while (const auto* binary = std::get_if<BinaryNode>(&first->Node)) {
        if (binary->Operator != BinaryOperator::Concatenate ||
            Expressions().MayRunCode(*binary->Right)) {
            return false;
        }
        parts.push_back(binary->Right.get());
        first = binary->Left.get();
    }
    const auto* name = std::get_if<NameNode>(&first->Node);
    if (name == nullptr || parts.empty()) {
        return false;
    }
    const NameMeaning meaning = Names().Resolve(name->Name, name->Suffix);
    if (meaning.What != NameMeaning::Kind::Variable || meaning.Variable.Where != variable.Where ||
        meaning.Variable.Index != variable.Index) {
        return false;
    }
    Operand rest = Expressions().Evaluate(*parts.back());
    for (std::size_t i = parts.size() - 1; i-- > 0;) {
        rest = Operators().GenericOperator(
            BinaryOperator::Concatenate, rest, Expressions().Evaluate(*parts[i]), {});
    }
    const Register slot = Operands().SlotOf(rest);
    if (variable.Where == Storage::Local) {
        m_code.Emit(Opcode::AppendText, static_cast<Register>(variable.Index), slot);
        return true;
    }
    const Register reference = m_code.TemporaryGeneric();
    Variables().ReferTo(variable, reference);
    m_code.Emit(Opcode::AppendText, reference, slot, 0, 1);
    return true;
}

void AssignmentCompiler::AssignWhole(
    const Expression& target, const LValue& lvalue, const Operand& value) {
    if (IsRecord(lvalue.Type)) {
        if (value.Type == lvalue.Type) {
            m_code.Emit(
                Opcode::AssignRecord,
                Operands().SlotOf(Expressions().Evaluate(target)),
                Operands().SlotOf(value));
        } else {
            Error(compileerror::kOther, m_context.Place, "A value of the same Type is expected");
        }
        return;
    }
    if (lvalue.IsFixedArray || !Stores().TakesArray(lvalue.Type, value)) {
        Error(
            compileerror::kOther,
            m_context.Place,
            lvalue.IsFixedArray ? "A fixed array cannot be assigned to"
                                : "An array of the same type is expected");
        return;
    }
    std::vector<AfterCall> after;
    const Register reference = m_code.TemporaryGeneric();
    LValues().ReferTo(target, lvalue, reference, after);
    Variables().StoreReference(reference, value, lvalue.Type, false);
    Arguments().Finish(after);
}

}  // namespace dorvik::basic
