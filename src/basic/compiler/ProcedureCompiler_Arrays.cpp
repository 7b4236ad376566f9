#include "ProcedureCompiler.h"
#include "base/modTextCase.h"
#include "basic/program/RecordLayout.h"

namespace dorvik::basic {

namespace {

const Value kMissing = Value::Missing();

}  // namespace

void ProcedureCompiler::On(const RedimStatement& node, SourcePlace place) {
    for (const RedimTarget& target : node.Targets) {
        Redimension(target, node.Preserve, place);
    }
}

/// `ReDim` of a name that nobody declared declares it.
void ProcedureCompiler::DeclareRedimensioned(const RedimTarget& target) {
    const auto* name = std::get_if<NameNode>(&target.Target->Node);
    if (name == nullptr || Resolve(name->Name, name->Suffix).What != NameMeaning::Kind::Unknown) {
        return;
    }
    VariableShape shape;
    shape.Type = m_scope.ResolveType(target.Type, name->Suffix, name->Name);
    shape.Type.IsArray = true;
    shape.IsNew = target.Type.IsNew;
    LocalSymbol symbol;
    symbol.Place = target.Target->Place;
    symbol.Variable = NewLocal(shape);
    m_locals.emplace(modTextCase::ToLower(name->Name), symbol);
}

void ProcedureCompiler::Redimension(const RedimTarget& target, bool preserve, SourcePlace place) {
    DeclareRedimensioned(target);
    const PlaceInfo info = PlaceOf(*target.Target);
    const bool isVariant = info.Type.Kind == DeclaredKind::Variant && !info.Type.IsArray;
    if (!info.IsPlace || info.IsFixedArray || (!info.Type.IsArray && !isVariant)) {
        Error(
            compileerror::kOther,
            place,
            info.IsFixedArray ? "A fixed array cannot be redimensioned"
                              : "ReDim needs a dynamic array or a Variant");
        return;
    }
    DeclaredType type = info.Type;
    if (!target.Type.Name.empty()) {
        const DeclaredType said = m_scope.ResolveType(target.Type, 0, {});
        if (info.Type.IsArray && said.Kind != info.Type.Kind) {
            Error(compileerror::kOther, place, "ReDim cannot change the type of the array");
        }
        type = said;
    }
    type.IsArray = false;
    std::vector<AfterCall> after;
    const Register reference = m_code.TemporaryGeneric();
    ReferenceTo(*target.Target, info, reference, after);
    const std::size_t count = target.Bounds.size();
    const Register first = m_code.PushArguments(2 * count);
    for (std::size_t i = 0; i < count; ++i) {
        const auto lower = static_cast<Register>(first + 2 * i);
        const DeclaredType asLong{DeclaredKind::Long};
        if (target.Bounds[i].Lower) {
            EvaluateInto(*target.Bounds[i].Lower, lower, asLong);
        } else {
            m_code.EmitWide(Opcode::LoadLong, lower, m_scope.Module.OptionBase);
        }
        if (target.Bounds[i].Upper) {
            EvaluateInto(*target.Bounds[i].Upper, static_cast<Register>(lower + 1), asLong);
        }
    }
    m_code.Emit(
        Opcode::DimensionArray,
        reference,
        static_cast<Register>(m_scope.AddType(type)),
        first,
        static_cast<std::uint8_t>(count * 2 + (preserve ? 1 : 0)));
    m_code.PopArguments(2 * count);
    FinishArguments(after);
}

void ProcedureCompiler::On(const EraseStatement& node, SourcePlace place) {
    for (const ExpressionPointer& written : node.Targets) {
        const Expression& target = WithoutEmptyParentheses(*written);
        const PlaceInfo info = PlaceOf(target);
        const bool isVariant = info.Type.Kind == DeclaredKind::Variant && !info.Type.IsArray;
        if (!info.IsPlace || (!info.Type.IsArray && !isVariant)) {
            Error(compileerror::kOther, place, "Erase needs an array");
            continue;
        }
        std::vector<AfterCall> after;
        const Register reference = m_code.TemporaryGeneric();
        ReferenceTo(target, info, reference, after);
        m_code.Emit(Opcode::EraseArray, reference);
        FinishArguments(after);
    }
}

/// `LSet` between two records: of one type member by member, of two byte by byte.
void ProcedureCompiler::CopyToRecord(
    const TextAssignStatement& node, const PlaceInfo& target, SourcePlace place) {
    const Operand value = Evaluate(*node.Value);
    const bool isRecord = value.Type.Kind == DeclaredKind::Record && !value.Type.IsArray;
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
        SlotOf(Evaluate(*node.Target)),
        SlotOf(value));
}

/// `Mid(v, start, length) = s`, `LSet v = s`, `RSet v = s`: the text is taken out, changed and put back.
/// Where nobody else has the text, Mid changes it in its place.
void ProcedureCompiler::On(const TextAssignStatement& node, SourcePlace place) {
    const PlaceInfo info = PlaceOf(*node.Target);
    const bool isRecord = info.Type.Kind == DeclaredKind::Record && !info.Type.IsArray;
    if (info.IsPlace && isRecord && node.Kind == TextAssignment::LSet) {
        CopyToRecord(node, info, place);
        return;
    }
    const bool isText = info.Type.Kind == DeclaredKind::String ||
                        info.Type.Kind == DeclaredKind::FixedString ||
                        info.Type.Kind == DeclaredKind::Variant;
    if (!info.IsPlace || !isText || info.Type.IsArray) {
        Error(compileerror::kOther, place, "A variable that holds a text is expected");
        return;
    }
    const bool isMid = node.Kind == TextAssignment::Mid;
    const DeclaredType text{DeclaredKind::String};
    const DeclaredType number{DeclaredKind::Long};
    std::vector<AfterCall> after;
    const Register reference = m_code.TemporaryGeneric();
    ReferenceTo(*node.Target, info, reference, after);
    const std::size_t count = isMid ? 4 : 2;
    const Register first = m_code.PushArguments(count);
    m_code.Emit(Opcode::LoadReference, first, reference);
    if (info.Type.Kind == DeclaredKind::Variant) {
        m_code.Emit(Opcode::CoerceString, first, first);
    }
    if (isMid) {
        EvaluateInto(*node.Start, static_cast<Register>(first + 1), number);
        if (node.Length) {
            EvaluateInto(*node.Length, static_cast<Register>(first + 2), number);
        } else {
            MoveShared(ConstantOperand(&kMissing), static_cast<Register>(first + 2));
        }
    }
    EvaluateInto(*node.Value, static_cast<Register>(first + count - 1), text);
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
    StoreReference(reference, changed, info.Type, false);
    m_code.Bind(done);
    m_code.Emit(Opcode::ReleaseArguments, first, static_cast<Register>(count));
    m_code.PopArguments(count);
    FinishArguments(after);
}

}  // namespace dorvik::basic
