#include "TextAssignmentCompiler.h"

#include "ArgumentCompiler.h"
#include "ExpressionCompiler.h"
#include "LValueCompiler.h"
#include "OperandCompiler.h"
#include "OperandTypes.h"
#include "VariableCompiler.h"
#include "basic/program/RecordLayout.h"

namespace dorvik::basic {

/// `LSet` between two records: of one type member by member, of two byte by byte.
void TextAssignmentCompiler::CopyToRecord(
    const TextAssignStatement& node, const LValue& target, SourcePlace place) {
    const Operand value = Expressions().Evaluate(*node.Value);
    const bool isRecord = IsRecord(value.Type);
    const bool isSame = value.Type == target.Type;
    if (!isRecord) {
        Error(compileerror::kOther, place, "'LSet' to a value of a Type needs a value of a Type");
        return;
    }
    if (!isSame && !(modRecordLayout::HasOnlyBytes(*m_scope.Result, value.Type.Record) &&
                     modRecordLayout::HasOnlyBytes(*m_scope.Result, target.Type.Record))) {
        Error(
            compileerror::kOther,
            place,
            "'LSet' between two Types needs members of numbers and fixed strings only");
        return;
    }
    m_code.Emit(
        isSame ? Opcode::AssignRecord : Opcode::CopyRecordBytes,
        Operands().SlotOf(Expressions().Evaluate(*node.Target)),
        Operands().SlotOf(value));
}

void TextAssignmentCompiler::Compile(const TextAssignStatement& node, SourcePlace place) {
    const LValue lvalue = LValues().LValueOf(*node.Target);
    const bool isRecord = IsRecord(lvalue.Type);
    if (lvalue.IsAssignable && isRecord && node.Kind == TextAssignment::LSet) {
        CopyToRecord(node, lvalue, place);
        return;
    }
    const bool isText = lvalue.Type.Kind == DeclaredKind::String ||
                        lvalue.Type.Kind == DeclaredKind::FixedString ||
                        lvalue.Type.Kind == DeclaredKind::Variant;
    if (!lvalue.IsAssignable || !isText || lvalue.Type.IsArray) {
        Error(compileerror::kOther, place, "A variable that holds a text is expected");
        return;
    }
    const bool isMid = node.Kind == TextAssignment::Mid;
    const DeclaredType text{DeclaredKind::String};
    const DeclaredType number{DeclaredKind::Long};
    std::vector<AfterCall> after;
    const Register reference = m_code.TemporaryGeneric();
    LValues().ReferTo(*node.Target, lvalue, reference, after);
    const std::size_t count = isMid ? 4 : 2;
    const Register first = m_code.PushArguments(count);
    m_code.Emit(Opcode::LoadReference, first, reference);
    if (lvalue.Type.Kind == DeclaredKind::Variant) {
        m_code.Emit(Opcode::CoerceString, first, first);
    }
    if (isMid) {
        Expressions().EvaluateInto(*node.Start, static_cast<Register>(first + 1), number);
        if (node.Length) {
            Expressions().EvaluateInto(*node.Length, static_cast<Register>(first + 2), number);
        } else {
            Operands().MoveShared(Operands().Missing(), static_cast<Register>(first + 2));
        }
    }
    Expressions().EvaluateInto(*node.Value, static_cast<Register>(first + count - 1), text);
    const Label done = m_code.NewLabel();
    if (isMid) {
        m_code.Emit(Opcode::MidAssign, first, reference);
        m_code.EmitJump(Opcode::Jump, done);
    } else {
        m_code.Emit(Opcode::AlignText, first, 0, node.Kind == TextAssignment::LSet ? 0 : 1);
    }
    Operand changed;
    changed.Slot = first;
    changed.Type = text;
    changed.IsTyped = true;
    Variables().StoreReference(reference, changed, lvalue.Type, false);
    m_code.Emit(Opcode::ReleaseArguments, first, static_cast<Register>(count));
    m_code.Bind(done);
    m_code.PopArguments(count);
    Arguments().Finish(after);
}

}  // namespace dorvik::basic
