#include "ProcedureCompiler.h"
#include "base/modTextCase.h"

namespace dorvik::basic {

namespace {

bool IsVariant(const DeclaredType& type) {
    return type.Kind == DeclaredKind::Variant && !type.IsArray;
}

bool IsObject(const DeclaredType& type) {
    return type.Kind == DeclaredKind::Object && !type.IsArray;
}

bool IsRecord(const DeclaredType& type) {
    return type.Kind == DeclaredKind::Record && !type.IsArray;
}

}  // namespace

void ProcedureCompiler::On(const AssignStatement& node, SourcePlace place) {
    Assign(*node.Target, *node.Value, node.IsSet, place);
}

void ProcedureCompiler::Assign(
    const Expression& written, const Expression& value, bool isSet, SourcePlace place) {
    const Expression& whole = WithoutEmptyParentheses(written);
    const bool isWhole = &whole != &written && PlaceOf(whole).Type.IsArray;
    const Expression& target = isWhole ? whole : written;
    if (const auto* name = std::get_if<NameNode>(&target.Node)) {
        const NameMeaning meaning = VariableOrImplicit(*name, target.Place);
        if (meaning.What == NameMeaning::Kind::Variable) {
            AssignVariable(meaning.Variable, target, value, isSet);
            return;
        }
    }
    Operand operand = Evaluate(value);
    if (MayRunCode(target)) {
        operand = Stable(operand);
    }
    StoreTo(target, operand, isSet, place);
}

void ProcedureCompiler::AssignVariable(
    const Variable& variable, const Expression& target, const Expression& value, bool isSet) {
    const DeclaredType& type = variable.Type;
    if (type.IsArray || IsRecord(type)) {
        PlaceInfo info{true, true, variable, type, variable.IsFixedArray};
        AssignWhole(target, info, Evaluate(value));
        return;
    }
    if (isSet) {
        StoreVariable(variable, Evaluate(value), true);
        return;
    }
    if (IsObject(type)) {
        // Without Set the value goes to the default member of the object that the variable holds.
        const Operand operand = Converted(Evaluate(value), {}, false);
        LetDefaultMember(Load(variable), operand);
        return;
    }
    if (variable.Where == Storage::Local) {
        RefuseLocked(static_cast<Register>(variable.Index));
    }
    if (TryAppend(variable, value)) {
        return;
    }
    if (variable.Where == Storage::Local) {
        EvaluateInto(value, static_cast<Register>(variable.Index), type);
    } else {
        StoreVariable(variable, Evaluate(value), false);
    }
}

/// What is assigned without `Set` to a variable, an element or a member that holds an object: a value already.
void ProcedureCompiler::LetDefaultMember(const Operand& object, const Operand& value) {
    InvokeMember(object, {}, InvokeKind::Let, {}, &value, false);
}

/// The array that a For Each walks stays in its variable.
void ProcedureCompiler::RefuseLocked(Register variable) {
    for (const HeldBlock& block : m_held) {
        if (block.Variable == variable) {
            m_code.Emit(Opcode::RefuseLocked, variable);
            return;
        }
    }
}

/// `s = s & a & b` grows the text of s in place when nobody else has it.
bool ProcedureCompiler::TryAppend(const Variable& variable, const Expression& value) {
    if (variable.Type.Kind != DeclaredKind::String && variable.Type.Kind != DeclaredKind::Variant) {
        return false;
    }
    std::vector<const Expression*> parts;
    const Expression* first = &value;
    while (const auto* binary = std::get_if<BinaryNode>(&first->Node)) {
        if (binary->Operator != BinaryOperator::Concatenate || MayRunCode(*binary->Right)) {
            return false;
        }
        parts.push_back(binary->Right.get());
        first = binary->Left.get();
    }
    const auto* name = std::get_if<NameNode>(&first->Node);
    if (name == nullptr || parts.empty()) {
        return false;
    }
    const NameMeaning meaning = Resolve(name->Name, name->Suffix);
    if (meaning.What != NameMeaning::Kind::Variable || meaning.Variable.Where != variable.Where ||
        meaning.Variable.Index != variable.Index) {
        return false;
    }
    Operand rest = Evaluate(*parts.back());
    for (std::size_t i = parts.size() - 1; i-- > 0;) {
        rest = GenericOperator(
            BinaryOperator::Concatenate, rest, Evaluate(*parts[i]), kNoSlot, DeclaredKind::Variant);
    }
    const Register slot = SlotOf(rest);
    if (variable.Where == Storage::Local) {
        m_code.Emit(Opcode::AppendText, static_cast<Register>(variable.Index), slot);
        return true;
    }
    const Register reference = m_code.TemporaryGeneric();
    ReferenceToVariable(variable, reference);
    m_code.Emit(Opcode::AppendText, reference, slot, 0, 1);
    return true;
}

/// The value in a slot, as a variable of the type would hold it.
Operand ProcedureCompiler::Converted(const Operand& value, const DeclaredType& type, bool isSet) {
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

void ProcedureCompiler::CheckSet(const DeclaredType& type, bool isSet) {
    if (isSet && !IsVariant(type) && !IsObject(type)) {
        Error(compileerror::kOther, m_place, "'Set' needs an object variable on the left");
    }
}

void ProcedureCompiler::StoreVariable(const Variable& variable, const Operand& value, bool isSet) {
    const DeclaredType& type = variable.Type;
    CheckSet(type, isSet);
    const auto index = static_cast<Register>(variable.Index);
    if (variable.Where == Storage::Local) {
        RefuseLocked(index);
        if (isSet) {
            SetInto(value, index, type);
        } else {
            MoveInto(value, index, type);
        }
        return;
    }
    const Operand converted = Converted(value, type, isSet);
    const Register slot = SlotOf(converted);
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

void ProcedureCompiler::StoreReference(
    Register reference, const Operand& value, const DeclaredType& type, bool isSet) {
    if (type.IsArray) {
        m_code.Emit(
            Opcode::AssignArray,
            reference,
            SlotOf(value),
            static_cast<Register>(m_scope.AddType(type)),
            value.IsFresh ? 1 : 0);
        return;
    }
    const Register slot = SlotOf(Converted(value, type, isSet));
    if (IsVariant(type)) {
        m_code.Emit(Opcode::StoreReferenceVariant, reference, slot);
    } else {
        m_code.Emit(
            IsPlain(type) ? Opcode::StoreReferencePlain : Opcode::StoreReference, reference, slot);
    }
}

/// Whether a dynamic array can be assigned the value: another of its type, or to bytes a text.
bool ProcedureCompiler::TakesArray(const DeclaredType& type, const Operand& value) const {
    const bool mayBeText = type.Kind == DeclaredKind::Byte && !value.Type.IsArray &&
                           value.Type.Kind != DeclaredKind::Record;
    const bool mayBeArray = value.Type == type || IsVariant(value.Type);
    return mayBeText || (mayBeArray && value.Constant == nullptr);
}

void ProcedureCompiler::AssignWhole(
    const Expression& target, const PlaceInfo& info, const Operand& value) {
    if (IsRecord(info.Type)) {
        if (value.Type == info.Type) {
            m_code.Emit(Opcode::AssignRecord, SlotOf(Evaluate(target)), SlotOf(value));
        } else {
            Error(compileerror::kOther, m_place, "A value of the same Type is expected");
        }
        return;
    }
    if (info.IsFixedArray || !TakesArray(info.Type, value)) {
        Error(
            compileerror::kOther,
            m_place,
            info.IsFixedArray ? "A fixed array cannot be assigned to"
                              : "An array of the same type is expected");
        return;
    }
    std::vector<AfterCall> after;
    const Register reference = m_code.TemporaryGeneric();
    ReferenceTo(target, info, reference, after);
    StoreReference(reference, value, info.Type, false);
    FinishArguments(after);
}

void ProcedureCompiler::StoreTo(
    const Expression& target, const Operand& value, bool isSet, SourcePlace place) {
    if (const auto* name = std::get_if<NameNode>(&target.Node)) {
        StoreName(target, *name, value, isSet);
    } else if (const auto* index = std::get_if<IndexNode>(&target.Node)) {
        StoreElement(target, *index, value, isSet, place);
    } else if (const auto* member = std::get_if<MemberNode>(&target.Node)) {
        StoreMember(*member, nullptr, value, isSet, place);
    } else if (const auto* bang = std::get_if<BangNode>(&target.Node)) {
        const Operand object = TargetOf(bang->Target.get(), place);
        const Operand converted = Converted(value, {}, isSet);
        const Register key = SlotOf(Fold(Value::Text(bang->Name)));
        m_code.Emit(Opcode::ArraySet, SlotOf(object), key, SlotOf(converted), isSet ? 1 : 0);
    } else {
        Error(compileerror::kOther, target.Place, "Nothing can be assigned to this expression");
    }
}

void ProcedureCompiler::StoreName(
    const Expression& target, const NameNode& node, const Operand& value, bool isSet) {
    const NameMeaning meaning = VariableOrImplicit(node, target.Place);
    if (meaning.What == NameMeaning::Kind::Variable) {
        StoreVariable(meaning.Variable, value, isSet);
    } else if (meaning.What == NameMeaning::Kind::Constant) {
        Error(
            compileerror::kOther,
            target.Place,
            "'" + node.Name + "' is a constant and cannot be assigned to");
    } else if (meaning.What == NameMeaning::Kind::Procedure && meaning.Symbol->IsProperty) {
        StoreProperty(*meaning.Symbol, node.Name, {}, value, isSet, target.Place);
    } else if (meaning.What == NameMeaning::Kind::ErrObject && !isSet) {
        InvokeMember(
            EvaluateSymbol(meaning, node.Name, target.Place),
            {},
            InvokeKind::Let,
            {},
            &value,
            false);
    } else {
        Error(compileerror::kOther, target.Place, "Nothing can be assigned to '" + node.Name + "'");
    }
}

void ProcedureCompiler::StoreProperty(
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
    const Operand held = MayRunCode(arguments) ? Stable(value) : value;
    CallProcedure(static_cast<std::size_t>(index), arguments, place, false, &held, isSet);
}

void ProcedureCompiler::StoreElement(
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
        const NameMeaning meaning = ResolveCallee(name->Name, name->Suffix);
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
        StoreArrayElement(Load(meaning.Variable), node.Arguments, value, isSet, place);
        return;
    }
    StoreArrayElement(HolderOf(*node.Target), node.Arguments, value, isSet, place);
}

/// The array or object in whose element something is stored. What an object or a function gives is not a variable:
/// of an array that comes from there a copy is changed, and nobody sees that.
Operand ProcedureCompiler::HolderOf(const Expression& expression) {
    const auto* index = std::get_if<IndexNode>(&expression.Node);
    if (!PlaceOf(expression).IsPlace) {
        Operand given = Evaluate(expression);
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
        return Evaluate(expression);
    }
    const Operand outer = HolderOf(*index->Target);
    const Operand element = ElementOf(outer, index->Arguments, expression.Place);
    if (!outer.Type.IsArray && element.Constant == nullptr) {
        m_code.Emit(Opcode::CopyGiven, element.Slot, outer.Slot);
    }
    return element;
}

/// Stores to an element of an array, or to the default member of an object.
void ProcedureCompiler::StoreArrayElement(
    const Operand& array,
    const std::vector<Argument>& arguments,
    const Operand& value,
    bool isSet,
    SourcePlace place) {
    DeclaredType type;
    if (array.Type.IsArray) {
        type = array.Type;
        type.IsArray = false;
        CheckSet(type, isSet);
    }
    if (IsRecord(type)) {
        const Operand element = ElementOf(array, arguments, place);
        if (value.Type == type && element.Constant == nullptr) {
            m_code.Emit(Opcode::AssignRecord, element.Slot, SlotOf(value));
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
        const Operand let = Converted(value, {}, false);
        LetDefaultMember(ElementOf(array, arguments, place), let);
        return;
    }
    const Operand converted = Converted(value, type, isSet);
    const bool isSimple = arguments.size() == 1 && arguments[0].Value && arguments[0].Name.empty();
    if (!isSimple) {
        InvokeMember(
            array, {}, isSet ? InvokeKind::Set : InvokeKind::Let, arguments, &converted, false);
        return;
    }
    const bool isPlain = array.Type.IsArray && IsPlain(type);
    const Operand index = Evaluate(*arguments[0].Value);
    const Register slot = isPlain ? LongSlotOf(index) : SlotOf(index);
    m_code.Emit(
        isPlain ? Opcode::ArraySetPlain : Opcode::ArraySet,
        SlotOf(array),
        slot,
        SlotOf(converted),
        isSet && !isPlain ? 1 : 0);
}

void ProcedureCompiler::StoreMember(
    const MemberNode& node,
    const std::vector<Argument>* arguments,
    const Operand& value,
    bool isSet,
    SourcePlace place) {
    if (ExtensionOf(node.Target.get()) != nullptr || EnumMemberOf(node) != nullptr) {
        Error(compileerror::kOther, place, "Nothing can be assigned to '" + node.Name + "'");
        return;
    }
    const Operand target = TargetOf(node.Target.get(), place);
    if (!IsRecord(target.Type)) {
        const Operand converted = Converted(value, {}, isSet);
        static const std::vector<Argument> kNone;
        InvokeMember(
            target,
            node.Name,
            isSet ? InvokeKind::Set : InvokeKind::Let,
            arguments != nullptr ? *arguments : kNone,
            &converted,
            false);
        return;
    }
    const int number = FindRecordMember(target.Type.Record, node.Name);
    if (arguments != nullptr && number >= 0) {
        StoreArrayElement(
            RecordMemberOf(target, node.Name, place), *arguments, value, isSet, place);
        return;
    }
    if (number < 0) {
        RecordMemberOf(target, node.Name, place);
        return;
    }
    StoreRecordMember(target, number, node, value, isSet);
}

void ProcedureCompiler::StoreRecordMember(
    const Operand& record, int number, const MemberNode& node, const Operand& value, bool isSet) {
    const VariableShape& shape =
        m_scope.Result->Records[static_cast<std::size_t>(record.Type.Record)]
            .Members[static_cast<std::size_t>(number)]
            .Shape;
    const DeclaredType type = shape.Type;
    CheckSet(type, isSet);
    if (type.IsArray) {
        if (shape.IsFixedArray || !TakesArray(type, value)) {
            Error(compileerror::kOther, m_place, "'" + node.Name + "' takes no such array");
            return;
        }
        const Register reference = m_code.TemporaryGeneric();
        m_code.Emit(
            Opcode::ReferenceMember, reference, SlotOf(record), static_cast<Register>(number), 1);
        StoreReference(reference, value, type, false);
        return;
    }
    if (IsObject(type) && !isSet) {
        const Operand let = Converted(value, {}, false);
        LetDefaultMember(RecordMemberOf(record, node.Name, m_place), let);
        return;
    }
    if (IsRecord(type)) {
        if (value.Type == type) {
            m_code.Emit(
                Opcode::AssignRecord,
                RecordMemberOf(record, node.Name, m_place).Slot,
                SlotOf(value));
        } else {
            Error(compileerror::kOther, m_place, "A value of the same Type is expected");
        }
        return;
    }
    m_code.Emit(
        Opcode::RecordSet,
        SlotOf(record),
        SlotOf(Converted(value, type, isSet)),
        static_cast<Register>(number));
}

}  // namespace dorvik::basic
