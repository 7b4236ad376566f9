#include "MemberCompiler.h"

#include "ArgumentCompiler.h"
#include "ExpressionCompiler.h"
#include "ExtensionCompiler.h"
#include "LValueCompiler.h"
#include "NameResolver.h"
#include "OperandCompiler.h"
#include "OperandTypes.h"
#include "base/modTextCase.h"
#include "basic/values/ValueKinds.h"

#include <algorithm>
#include <utility>

namespace dorvik::basic {

Operand MemberCompiler::ElementOf(
    const Operand& target, const std::vector<Argument>& arguments, SourcePlace place) {
    if (arguments.empty()) {
        return target;
    }
    if (target.Type.IsArray) {
        return ArrayElement(target, arguments, place);
    }
    const bool mayHaveElements =
        target.Type.Kind == DeclaredKind::Object ||
        (target.Type.Kind == DeclaredKind::Variant && target.Constant == nullptr);
    if (!mayHaveElements) {
        Error(
            compileerror::kOther,
            place,
            "An array, a procedure or an object is expected before '('");
        return Operands().Nothing();
    }
    if (arguments.size() != 1 || !arguments[0].Value || !arguments[0].Name.empty()) {
        return Invoke(target, {}, InvokeKind::Get, arguments, nullptr, true);
    }
    const Operand held =
        Expressions().MayRunCode(*arguments[0].Value) ? Operands().Stable(target) : target;
    const Register index = Operands().SlotOf(Expressions().Evaluate(*arguments[0].Value));
    Operand result;
    result.Slot = m_code.TemporaryGeneric();
    m_code.Emit(Opcode::ArrayGet, result.Slot, Operands().SlotOf(held), index);
    return result;
}

Operand MemberCompiler::ArrayElement(
    const Operand& target, const std::vector<Argument>& arguments, SourcePlace place) {
    Operand result;
    result.Type = target.Type;
    result.Type.IsArray = false;
    result.IsTyped = result.Type.Kind != DeclaredKind::Variant;
    if (ArgumentCompiler::HasNames(arguments) ||
        std::any_of(
            arguments.begin(), arguments.end(), [](const Argument& a) { return !a.Value; })) {
        Error(
            compileerror::kOther,
            place,
            "The indices of an array have no names and none is left out");
        return Operands().Nothing();
    }
    if (target.MakesObjects) {
        return CreatedElement(target, arguments);
    }
    const bool isPlain = IsPlain(result.Type);
    if (arguments.size() == 1) {
        const Operand held =
            Expressions().MayRunCode(*arguments[0].Value) ? Operands().Stable(target) : target;
        const Operand given = Expressions().Evaluate(*arguments[0].Value);
        const Register index = isPlain ? Operands().LongSlotOf(given) : Operands().SlotOf(given);
        result.Slot = Operands().TemporaryFor(result.Type);
        m_code.Emit(
            isPlain ? Opcode::ArrayGetPlain : Opcode::ArrayGet, result.Slot, held.Slot, index);
        return result;
    }
    Operand element = Invoke(target, {}, InvokeKind::Get, arguments, nullptr, true);
    result.Slot = element.Slot;
    if (isPlain) {
        result.Slot = m_code.TemporaryPlain();
        m_code.Emit(Opcode::MovePlain, result.Slot, element.Slot);
    }
    return result;
}

/// An element of an array declared with `As New`.
Operand
MemberCompiler::CreatedElement(const Operand& array, const std::vector<Argument>& arguments) {
    Operand result;
    result.Type = array.Type;
    result.Type.IsArray = false;
    result.IsTyped = true;
    result.Slot = m_code.TemporaryGeneric();
    const Register pin = m_code.TemporaryGeneric();
    const Register reference = m_code.TemporaryGeneric();
    LValues().ReferToElement(array, arguments, pin, reference);
    m_code.Emit(Opcode::LoadReference, result.Slot, reference);
    m_code.Emit(Opcode::Clear, pin);
    return result;
}

int MemberCompiler::FindRecordMember(std::int32_t record, const std::string& name) const {
    const auto& members = m_scope.RecordAt(record).Members;
    for (std::size_t i = 0; i < members.size(); ++i) {
        if (modTextCase::Equal(members[i].Name, name)) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

Operand MemberCompiler::TargetOf(const Expression* target, SourcePlace place) {
    if (target != nullptr) {
        return Expressions().Evaluate(*target);
    }
    if (!m_context.Blocks.Withs.empty()) {
        return m_context.Blocks.Withs.back();
    }
    Error(
        compileerror::kOther, place, "A name with a point or '!' in front needs a With around it");
    return Operands().Nothing();
}

Operand
MemberCompiler::RecordMemberOf(const Operand& record, const std::string& name, SourcePlace place) {
    const int number = FindRecordMember(record.Type.Record, name);
    if (number < 0) {
        Error(
            compileerror::kOther,
            place,
            "The type '" + m_scope.RecordAt(record.Type.Record).Name + "' has no member '" + name +
                "'");
        return Operands().Nothing();
    }
    Operand result;
    result.Type =
        m_scope.RecordAt(record.Type.Record).Members[static_cast<std::size_t>(number)].Shape.Type;
    result.IsTyped = result.Type.Kind != DeclaredKind::Variant || result.Type.IsArray;
    result.Slot = Operands().TemporaryFor(result.Type);
    m_code.Emit(
        IsPlain(result.Type) ? Opcode::RecordGetPlain : Opcode::RecordGet,
        result.Slot,
        Operands().SlotOf(record),
        static_cast<Register>(number));
    return result;
}

Operand MemberCompiler::EvaluateMember(
    const Expression& expression,
    const MemberNode& node,
    const std::vector<Argument>* arguments,
    bool wantsResult) {
    static const std::vector<Argument> kNone;
    const std::vector<Argument>& given = arguments != nullptr ? *arguments : kNone;
    if (const ExtensionEntry* extension = Names().ExtensionOf(node.Target.get())) {
        return Extensions().Call(*extension, node.Name, given, expression.Place, wantsResult);
    }
    if (const Value* member = Names().EnumMemberOf(node)) {
        return ElementOf(Operands().ConstantOperand(member), given, expression.Place);
    }
    const Operand target = TargetOf(node.Target.get(), expression.Place);
    if (IsRecord(target.Type)) {
        return ElementOf(
            RecordMemberOf(target, node.Name, expression.Place), given, expression.Place);
    }
    const InvokeKind kind = wantsResult ? InvokeKind::Get : InvokeKind::Call;
    return Invoke(target, node.Name, kind, given, nullptr, wantsResult);
}

Operand MemberCompiler::EvaluateBang(const BangNode& node, SourcePlace place) {
    const Operand target = TargetOf(node.Target.get(), place);
    const Register name = Operands().SlotOf(Operands().Fold(Value::Text(node.Name)));
    Operand result;
    result.Slot = m_code.TemporaryGeneric();
    m_code.Emit(Opcode::ArrayGet, result.Slot, Operands().SlotOf(target), name);
    return result;
}

Operand MemberCompiler::Invoke(
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
            compileerror::kOther,
            m_context.Place,
            "An object or a value of a Type is expected before '.'");
        return Operands().Nothing();
    }
    CallSite site;
    site.Name = name;
    site.Kind = kind;
    site.Arguments = static_cast<std::uint32_t>(arguments.size() + (value != nullptr ? 1 : 0));
    const std::size_t slots = site.Arguments + std::size_t{1};
    const Register first = m_code.PushArguments(slots);
    m_code.Emit(Opcode::Move, first, Operands().SlotOf(object));
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        Arguments().EvaluateCopy(arguments[i], static_cast<Register>(first + 1 + i));
        if (!arguments[i].Name.empty()) {
            site.ArgumentNames.push_back(arguments[i].Name);
        }
    }
    if (value != nullptr) {
        Operands().MoveCopy(*value, static_cast<Register>(first + slots - 1));
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

}  // namespace dorvik::basic
