#include "ProcedureCompiler.h"
#include "base/modTextCase.h"

namespace dorvik::basic {

namespace {

bool IsRecord(const DeclaredType& type) {
    return type.Kind == DeclaredKind::Record && !type.IsArray;
}

}  // namespace

int ProcedureCompiler::FindRecordMember(std::int32_t record, const std::string& name) const {
    const auto& members = m_scope.Result->Records[static_cast<std::size_t>(record)].Members;
    for (std::size_t i = 0; i < members.size(); ++i) {
        if (modTextCase::Equal(members[i].Name, name)) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

/// `EName.Member`: the value, or null if the name before the point is no enum.
const Value* ProcedureCompiler::EnumMemberOf(const MemberNode& node) {
    const auto* name = node.Target ? std::get_if<NameNode>(&node.Target->Node) : nullptr;
    if (name == nullptr || Resolve(name->Name, 0).What != NameMeaning::Kind::Type) {
        return nullptr;
    }
    bool wasTold = false;
    return m_scope.FindConstant(name->Name, node.Name, wasTold);
}

/// The object or record before a point; in a With, the With's.
Operand ProcedureCompiler::TargetOf(const Expression* target, SourcePlace place) {
    if (target != nullptr) {
        return Evaluate(*target);
    }
    if (!m_withs.empty()) {
        return m_withs.back().Target;
    }
    Error(
        compileerror::kOther, place, "A name with a point or '!' in front needs a With around it");
    return Nothing();
}

Operand ProcedureCompiler::RecordMemberOf(
    const Operand& record, const std::string& name, SourcePlace place) {
    const int number = FindRecordMember(record.Type.Record, name);
    if (number < 0) {
        Error(
            compileerror::kOther,
            place,
            "The type '" +
                m_scope.Result->Records[static_cast<std::size_t>(record.Type.Record)].Name +
                "' has no member '" + name + "'");
        return Nothing();
    }
    Operand result;
    result.Type = m_scope.Result->Records[static_cast<std::size_t>(record.Type.Record)]
                      .Members[static_cast<std::size_t>(number)]
                      .Shape.Type;
    result.IsTyped = result.Type.Kind != DeclaredKind::Variant || result.Type.IsArray;
    result.Slot = TemporaryFor(result.Type);
    m_code.Emit(
        IsPlain(result.Type) ? Opcode::RecordGetPlain : Opcode::RecordGet,
        result.Slot,
        SlotOf(record),
        static_cast<Register>(number));
    return result;
}

Operand ProcedureCompiler::EvaluateMember(
    const Expression& expression,
    const MemberNode& node,
    const std::vector<Argument>* arguments,
    bool wantsResult) {
    static const std::vector<Argument> kNone;
    const std::vector<Argument>& given = arguments != nullptr ? *arguments : kNone;
    if (const ExtensionEntry* extension = ExtensionOf(node.Target.get())) {
        return CallExtension(*extension, node.Name, given, expression.Place, wantsResult);
    }
    if (const Value* member = EnumMemberOf(node)) {
        return ElementOf(ConstantOperand(member), given, expression.Place);
    }
    const Operand target = TargetOf(node.Target.get(), expression.Place);
    if (IsRecord(target.Type)) {
        return ElementOf(
            RecordMemberOf(target, node.Name, expression.Place), given, expression.Place);
    }
    const InvokeKind kind = wantsResult ? InvokeKind::Get : InvokeKind::Call;
    return InvokeMember(target, node.Name, kind, given, nullptr, wantsResult);
}

Operand ProcedureCompiler::EvaluateBang(const BangNode& node, SourcePlace place) {
    const Operand target = TargetOf(node.Target.get(), place);
    const Register name = SlotOf(Fold(Value::Text(node.Name)));
    Operand result;
    result.Slot = m_code.TemporaryGeneric();
    m_code.Emit(Opcode::ArrayGet, result.Slot, SlotOf(target), name);
    return result;
}

/// A member of an object, or with an empty name its default member or an element of an array.
Operand ProcedureCompiler::InvokeMember(
    const Operand& object,
    const std::string& name,
    InvokeKind kind,
    const std::vector<Argument>& arguments,
    const Operand* value,
    bool wantsResult) {
    const bool mayBeObject =
        object.Type.IsArray || object.Type.Kind == DeclaredKind::Object ||
        (object.Type.Kind == DeclaredKind::Variant && object.Constant == nullptr);
    if (!mayBeObject || (object.Type.IsArray && !name.empty())) {
        Error(
            compileerror::kOther, m_place, "An object or a value of a Type is expected before '.'");
        return Nothing();
    }
    CallSite site;
    site.Name = name;
    site.Kind = kind;
    site.Arguments = static_cast<std::uint32_t>(arguments.size() + (value != nullptr ? 1 : 0));
    const std::size_t slots = site.Arguments + std::size_t{1};
    const Register first = m_code.PushArguments(slots);
    m_code.Emit(Opcode::Move, first, SlotOf(object));
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        EvaluateArgument(arguments[i], static_cast<Register>(first + 1 + i));
        if (!arguments[i].Name.empty()) {
            site.ArgumentNames.push_back(arguments[i].Name);
        }
    }
    if (value != nullptr) {
        MoveCopy(*value, static_cast<Register>(first + slots - 1));
    }
    m_scope.Result->Sites.push_back(std::move(site));
    Operand result;
    result.IsFresh = !object.Type.IsArray;
    if (wantsResult) {
        result.Slot = m_code.TemporaryGeneric();
    }
    m_code.EmitTarget(Opcode::Invoke, result.Slot, m_scope.Result->Sites.size() - 1, first);
    m_code.PopArguments(slots);
    return result;
}

PlaceInfo ProcedureCompiler::PlaceOfMember(const MemberNode& node) {
    PlaceInfo info;
    DeclaredType record;
    if (!node.Target) {
        record = m_withs.empty() ? DeclaredType{} : m_withs.back().Target.Type;
    } else if (ExtensionOf(node.Target.get()) != nullptr || EnumMemberOf(node) != nullptr) {
        return info;
    } else {
        record = PlaceOf(*node.Target).Type;
    }
    if (!IsRecord(record)) {
        return info;
    }
    const int number = FindRecordMember(record.Record, node.Name);
    if (number < 0) {
        return info;
    }
    const VariableShape& shape = m_scope.Result->Records[static_cast<std::size_t>(record.Record)]
                                     .Members[static_cast<std::size_t>(number)]
                                     .Shape;
    info.IsPlace = true;
    info.Type = shape.Type;
    info.IsFixedArray = shape.IsFixedArray;
    return info;
}

/// `a()` of a whole array stands for the array itself.
const Expression& ProcedureCompiler::WithoutEmptyParentheses(const Expression& expression) {
    const auto* index = std::get_if<IndexNode>(&expression.Node);
    if (index == nullptr || !index->Arguments.empty()) {
        return expression;
    }
    if (const auto* name = std::get_if<NameNode>(&index->Target->Node)) {
        if (ResolveCallee(name->Name, name->Suffix).What != NameMeaning::Kind::Variable) {
            return expression;
        }
    }
    const PlaceInfo info = PlaceOf(*index->Target);
    const bool mayBeArray = info.Type.IsArray || info.Type.Kind == DeclaredKind::Variant;
    return info.IsPlace && mayBeArray ? *index->Target : expression;
}

/// Tells what an expression stands for if something can be stored there, without writing code.
PlaceInfo ProcedureCompiler::PlaceOf(const Expression& expression) {
    PlaceInfo info;
    if (const auto* name = std::get_if<NameNode>(&expression.Node)) {
        const NameMeaning meaning = VariableOrImplicit(*name, expression.Place);
        info.IsPlace = info.IsVariable = meaning.What == NameMeaning::Kind::Variable;
        info.Variable = meaning.Variable;
        info.Type = meaning.Variable.Type;
        info.IsFixedArray = meaning.Variable.IsFixedArray;
        return info;
    }
    if (const auto* member = std::get_if<MemberNode>(&expression.Node)) {
        return PlaceOfMember(*member);
    }
    const auto* index = std::get_if<IndexNode>(&expression.Node);
    if (index == nullptr || index->Arguments.empty() || index->Arguments.size() > 60) {
        return info;
    }
    for (const Argument& argument : index->Arguments) {
        if (!argument.Value || !argument.Name.empty()) {
            return info;
        }
    }
    if (const auto* name = std::get_if<NameNode>(&index->Target->Node)) {
        if (ResolveCallee(name->Name, name->Suffix).What != NameMeaning::Kind::Variable) {
            return info;
        }
    }
    const PlaceInfo target = PlaceOf(*index->Target);
    const bool isVariant = target.Type.Kind == DeclaredKind::Variant && !target.Type.IsArray;
    if (!target.IsPlace || (!target.Type.IsArray && !isVariant)) {
        return info;
    }
    info.IsPlace = true;
    info.Type = target.Type;
    info.Type.IsArray = false;
    return info;
}

}  // namespace dorvik::basic
