#include "StoreCompiler.h"

#include "CallCompiler.h"
#include "ExpressionCompiler.h"
#include "LValueCompiler.h"
#include "MemberCompiler.h"
#include "NameResolver.h"
#include "OperandCompiler.h"
#include "OperandTypes.h"
#include "VariableCompiler.h"
#include "basic/values/ValueKinds.h"

namespace dorvik::basic {

void StoreCompiler::LetDefaultMember(const Operand& object, const Operand& value) {
    Members().Invoke(object, {}, InvokeKind::Let, {}, &value, false);
}

bool StoreCompiler::TakesArray(const DeclaredType& type, const Operand& value) const {
    const bool mayBeText = type.Kind == DeclaredKind::Byte && !value.Type.IsArray &&
                           value.Type.Kind != DeclaredKind::Record;
    const bool mayBeArray = value.Type == type || IsVariant(value.Type);
    return mayBeText || (mayBeArray && value.Constant == nullptr);
}

void StoreCompiler::StoreTo(
    const Expression& target, const Operand& value, bool isSet, SourcePlace place) {
    if (const auto* name = std::get_if<NameNode>(&target.Node)) {
        StoreName(target, *name, value, isSet);
    } else if (const auto* index = std::get_if<IndexNode>(&target.Node)) {
        StoreElement(target, *index, value, isSet, place);
    } else if (const auto* member = std::get_if<MemberNode>(&target.Node)) {
        StoreMember(*member, nullptr, value, isSet, place);
    } else if (const auto* bang = std::get_if<BangNode>(&target.Node)) {
        const Operand object = Members().TargetOf(bang->Target.get(), place);
        const Operand converted = Operands().Converted(value, {}, isSet);
        const Register key = Operands().SlotOf(Operands().Fold(Value::Text(bang->Name)));
        m_code.Emit(
            Opcode::ArraySet,
            Operands().SlotOf(object),
            key,
            Operands().SlotOf(converted),
            isSet ? 1 : 0);
    } else {
        Error(compileerror::kOther, target.Place, "Nothing can be assigned to this expression");
    }
}

void StoreCompiler::StoreName(
    const Expression& target, const NameNode& node, const Operand& value, bool isSet) {
    const NameMeaning meaning = Names().VariableOrImplicit(node, target.Place);
    if (meaning.What == NameMeaning::Kind::Variable) {
        Variables().Store(meaning.Variable, value, isSet);
    } else if (meaning.What == NameMeaning::Kind::Constant) {
        Error(
            compileerror::kOther,
            target.Place,
            "'" + node.Name + "' is a constant and cannot be assigned to");
    } else if (meaning.What == NameMeaning::Kind::Procedure && meaning.Symbol->IsProperty) {
        StoreProperty(*meaning.Symbol, node.Name, {}, value, isSet, target.Place);
    } else if (meaning.What == NameMeaning::Kind::ErrObject && !isSet) {
        Members().Invoke(
            Expressions().EvaluateSymbol(meaning, node.Name, target.Place),
            {},
            InvokeKind::Let,
            {},
            &value,
            false);
    } else {
        Error(compileerror::kOther, target.Place, "Nothing can be assigned to '" + node.Name + "'");
    }
}

void StoreCompiler::StoreProperty(
    const Symbol& symbol,
    const std::string& name,
    const std::vector<Argument>& arguments,
    const Operand& value,
    bool isSet,
    SourcePlace place) {
    const int index = isSet ? symbol.Set : symbol.Let;
    if (index < 0) {
        Error(
            compileerror::kOther,
            place,
            "The property '" + name + "' has no Property " + (isSet ? "Set" : "Let"));
        return;
    }
    const Operand held = Expressions().MayRunCode(arguments) ? Operands().Stable(value) : value;
    Calls().CallProcedure(static_cast<std::size_t>(index), arguments, place, false, &held, isSet);
}

void StoreCompiler::StoreElement(
    const Expression& target,
    const IndexNode& node,
    const Operand& value,
    bool isSet,
    SourcePlace place) {
    if (const auto* member = std::get_if<MemberNode>(&node.Target->Node)) {
        StoreMember(*member, &node.Arguments, value, isSet, place);
        return;
    }
    if (const auto* name = std::get_if<NameNode>(&node.Target->Node)) {
        const NameMeaning meaning = Names().ResolveCallee(name->Name, name->Suffix);
        if (meaning.What == NameMeaning::Kind::Procedure && meaning.Symbol->IsProperty) {
            StoreProperty(*meaning.Symbol, name->Name, node.Arguments, value, isSet, target.Place);
            return;
        }
        if (meaning.What == NameMeaning::Kind::Unknown) {
            Error(
                compileerror::kNotDefined,
                target.Place,
                "The array '" + name->Name + "' is not defined");
            return;
        }
        if (meaning.What != NameMeaning::Kind::Variable) {
            Error(
                compileerror::kOther,
                target.Place,
                "Nothing can be assigned to '" + name->Name + "(...)'");
            return;
        }
        StoreArrayElement(Variables().Load(meaning.Variable), node.Arguments, value, isSet, place);
        return;
    }
    StoreArrayElement(LValues().HolderOf(*node.Target), node.Arguments, value, isSet, place);
}

/// Stores to an element of an array, or to the default member of an object.
void StoreCompiler::StoreArrayElement(
    const Operand& array,
    const std::vector<Argument>& arguments,
    const Operand& value,
    bool isSet,
    SourcePlace place) {
    DeclaredType type;
    if (array.Type.IsArray) {
        type = array.Type;
        type.IsArray = false;
        Variables().CheckSet(type, isSet);
    }
    if (IsRecord(type)) {
        const Operand element = Members().ElementOf(array, arguments, place);
        if (value.Type == type && element.Constant == nullptr) {
            m_code.Emit(Opcode::AssignRecord, element.Slot, Operands().SlotOf(value));
        } else {
            Error(compileerror::kOther, place, "A value of the same Type is expected");
        }
        return;
    }
    if (arguments.empty()) {
        Error(compileerror::kOther, place, "An index is expected");
        return;
    }
    if (IsObject(type) && !isSet) {
        const Operand let = Operands().Converted(value, {}, false);
        LetDefaultMember(Members().ElementOf(array, arguments, place), let);
        return;
    }
    const Operand converted = Operands().Converted(value, type, isSet);
    const bool isSimple = arguments.size() == 1 && arguments[0].Value && arguments[0].Name.empty();
    if (!isSimple) {
        Members().Invoke(
            array, {}, isSet ? InvokeKind::Set : InvokeKind::Let, arguments, &converted, false);
        return;
    }
    const bool isPlain = array.Type.IsArray && IsPlain(type);
    const Operand index = Expressions().Evaluate(*arguments[0].Value);
    const Register slot = isPlain ? Operands().LongSlotOf(index) : Operands().SlotOf(index);
    m_code.Emit(
        isPlain ? Opcode::ArraySetPlain : Opcode::ArraySet,
        Operands().SlotOf(array),
        slot,
        Operands().SlotOf(converted),
        isSet && !isPlain ? 1 : 0);
}

void StoreCompiler::StoreMember(
    const MemberNode& node,
    const std::vector<Argument>* arguments,
    const Operand& value,
    bool isSet,
    SourcePlace place) {
    if (Names().ExtensionOf(node.Target.get()) != nullptr ||
        Names().EnumMemberOf(node) != nullptr) {
        Error(compileerror::kOther, place, "Nothing can be assigned to '" + node.Name + "'");
        return;
    }
    const Operand target = Members().TargetOf(node.Target.get(), place);
    if (!IsRecord(target.Type)) {
        const Operand converted = Operands().Converted(value, {}, isSet);
        static const std::vector<Argument> kNone;
        Members().Invoke(
            target,
            node.Name,
            isSet ? InvokeKind::Set : InvokeKind::Let,
            arguments != nullptr ? *arguments : kNone,
            &converted,
            false);
        return;
    }
    const int number = Members().FindRecordMember(target.Type.Record, node.Name);
    if (arguments != nullptr && number >= 0) {
        StoreArrayElement(
            Members().RecordMemberOf(target, node.Name, place), *arguments, value, isSet, place);
        return;
    }
    if (number < 0) {
        Members().RecordMemberOf(target, node.Name, place);
        return;
    }
    StoreRecordMember(target, number, node, value, isSet);
}

void StoreCompiler::StoreRecordMember(
    const Operand& record, int number, const MemberNode& node, const Operand& value, bool isSet) {
    const VariableShape& shape =
        m_scope.RecordAt(record.Type.Record).Members[static_cast<std::size_t>(number)].Shape;
    const DeclaredType type = shape.Type;
    Variables().CheckSet(type, isSet);
    if (type.IsArray) {
        if (shape.IsFixedArray || !TakesArray(type, value)) {
            Error(compileerror::kOther, m_context.Place, "'" + node.Name + "' takes no such array");
            return;
        }
        const Register reference = m_code.TemporaryGeneric();
        m_code.Emit(
            Opcode::ReferenceMember,
            reference,
            Operands().SlotOf(record),
            static_cast<Register>(number),
            1);
        Variables().StoreReference(reference, value, type, false);
        return;
    }
    if (IsObject(type) && !isSet) {
        const Operand let = Operands().Converted(value, {}, false);
        LetDefaultMember(Members().RecordMemberOf(record, node.Name, m_context.Place), let);
        return;
    }
    if (IsRecord(type)) {
        if (value.Type == type) {
            m_code.Emit(
                Opcode::AssignRecord,
                Members().RecordMemberOf(record, node.Name, m_context.Place).Slot,
                Operands().SlotOf(value));
        } else {
            Error(compileerror::kOther, m_context.Place, "A value of the same Type is expected");
        }
        return;
    }
    m_code.Emit(
        Opcode::RecordSet,
        Operands().SlotOf(record),
        Operands().SlotOf(Operands().Converted(value, type, isSet)),
        static_cast<Register>(number));
}

}  // namespace dorvik::basic
