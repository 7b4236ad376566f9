#include "WithCompiler.h"

#include "ExpressionCompiler.h"
#include "JumpCompiler.h"
#include "LValueCompiler.h"
#include "OperandCompiler.h"
#include "OperandTypes.h"
#include "StatementCompiler.h"

namespace dorvik::basic {

void WithCompiler::Compile(const WithStatement& node, SourcePlace) {
    const std::size_t held = m_context.Blocks.Held.size();
    const Register slot = m_code.NewGeneric();
    const std::uint32_t nothing = m_scope.AddConstant(Value::Nothing());
    m_code.SetInitial(slot, Value::Nothing());
    // Required: after an error in the head, Resume Next goes into the block, where every member is error 91.
    const Label body = m_code.NewLabel();
    m_code.Mark(m_context.Place.Line, m_code.Here(), body);
    if (Jumps().MayEnterBlocks()) {
        m_code.EmitWide(Opcode::LoadConstant, slot, nothing);
    }
    HoldArraysOf(*node.Target, node);
    const Operand target = Expressions().Evaluate(*node.Target);
    Operand kept = target;
    kept.Constant = nullptr;
    kept.Slot = slot;
    const bool isRecord = IsRecord(target.Type);
    const bool mayBeObject =
        !target.Type.IsArray && (target.Type.Kind == DeclaredKind::Object ||
                                 (target.Type.Kind == DeclaredKind::Variant && !target.Constant));
    if (!isRecord && !mayBeObject) {
        Error(compileerror::kOther, m_context.Place, "With needs an object or a value of a Type");
    } else {
        m_code.Emit(isRecord ? Opcode::Move : Opcode::WithObject, slot, Operands().SlotOf(target));
    }
    m_code.Bind(body);
    m_context.Blocks.Withs.push_back(kept);
    Statements().CompileBlock(node.Body);
    m_context.Blocks.Withs.pop_back();
    m_code.EmitWide(Opcode::LoadConstant, slot, nothing);
    for (; m_context.Blocks.Held.size() > held; m_context.Blocks.Held.pop_back()) {
        m_code.Emit(Opcode::Clear, m_context.Blocks.Held.back().State);
    }
}

/// An array keeps its elements while a With works on one of them: a `ReDim` would free that element.
void WithCompiler::HoldArraysOf(const Expression& target, const WithStatement& node) {
    if (const auto* member = std::get_if<MemberNode>(&target.Node); member && member->Target) {
        HoldArraysOf(*member->Target, node);
        return;
    }
    const auto* index = std::get_if<IndexNode>(&target.Node);
    if (index == nullptr) {
        return;
    }
    HoldArraysOf(*index->Target, node);
    const bool isElement =
        LValues().LValueOf(target).IsAssignable && !Expressions().MayRunCode(*index->Target);
    const DeclaredType type = isElement ? LValues().LValueOf(*index->Target).Type : DeclaredType{};
    if (!type.IsArray || type.Kind != DeclaredKind::Record) {
        return;
    }
    const std::size_t mark = m_code.TemporaryMark();
    m_context.Blocks.Held.push_back({&node, m_code.NewGeneric(), m_context.Blocks.Loops.size()});
    m_code.Emit(
        Opcode::HoldArray,
        m_context.Blocks.Held.back().State,
        Operands().SlotOf(Expressions().Evaluate(*index->Target)));
    m_code.ReleaseTemporaries(mark);
}

}  // namespace dorvik::basic
