#include "ProcedureCompiler.h"
#include "base/modTextCase.h"

namespace dorvik::basic {

ProcedureCompiler::ProcedureCompiler(ModuleScope& scope, std::size_t index)
    : m_scope(scope),
      m_procedure(scope.Result->Procedures[index]),
      m_node(*scope.Nodes[index]),
      m_code(*scope.Result, m_procedure),
      m_evaluator(*this, scope.Messages, scope.Module.ComparesText) {}

void ProcedureCompiler::Compile() {
    m_place = m_node.Place;
    const Label begin = m_code.Here();
    m_code.Mark(m_node.Place.Line, begin, begin);
    DeclareParameters();
    CollectLabels(m_node.Body);
    DeclareLocals(m_node.Body);
    CompileBlock(m_node.Body);
    m_place = m_node.EndPlace;
    const Label end = m_code.Here();
    m_code.Mark(m_node.EndPlace.Line, end, end);
    if (m_hasHandler) {
        m_code.Emit(Opcode::ClearHandledError);
    }
    EmitReturn();
    WarnOfUnusedLabels();
    if (!m_code.Finish()) {
        Error(
            compileerror::kOther,
            m_node.Place,
            "The procedure '" + m_node.Name + "' has too many variables or expressions");
    }
}

void ProcedureCompiler::DeclareParameters() {
    for (std::size_t i = 0; i < m_node.Parameters.size(); ++i) {
        const Parameter& parameter = m_procedure.Parameters[i];
        LocalSymbol symbol;
        symbol.Place = m_node.Parameters[i].Place;
        symbol.Variable.Where = parameter.IsByVal ? Storage::Local : Storage::Reference;
        symbol.Variable.Index = static_cast<std::uint32_t>(i);
        symbol.Variable.Type = parameter.Type;
        AddLocal(parameter.Name, std::move(symbol));
    }
    const bool hasResult =
        m_node.Kind == ProcedureKind::Function || m_node.Kind == ProcedureKind::PropertyGet;
    if (!hasResult) {
        return;
    }
    VariableShape shape;
    shape.Type = m_procedure.Result;
    LocalSymbol symbol;
    symbol.Place = m_node.Place;
    symbol.IsResult = true;
    symbol.Variable = NewLocal(shape);
    m_result = symbol.Variable;
    AddLocal(m_node.Name, std::move(symbol));
}

void ProcedureCompiler::EmitReturn() {
    if (!m_result) {
        m_code.Emit(Opcode::Return);
    } else {
        m_code.Emit(
            IsPlain(m_result->Type) ? Opcode::ReturnPlain : Opcode::ReturnValue,
            static_cast<Register>(m_result->Index));
    }
}

void ProcedureCompiler::CompileBlock(const Block& block) {
    for (const Statement& statement : block) {
        CompileStatement(statement);
    }
}

void ProcedureCompiler::CompileStatement(const Statement& statement) {
    m_place = statement.Place;
    const std::size_t temporaries = m_code.TemporaryMark();
    const Label again = m_code.Here();
    const Label next = m_code.NewLabel();
    m_code.Mark(statement.Place.Line, again, next);
    std::visit([&](const auto& node) { On(node, statement.Place); }, statement.Node);
    m_code.Bind(next);
    m_code.ReleaseTemporaries(temporaries);
}

void ProcedureCompiler::On(const IfStatement& node, SourcePlace) {
    const Label end = m_code.NewLabel();
    for (std::size_t i = 0; i < node.Branches.size(); ++i) {
        const IfBranch& branch = node.Branches[i];
        const Label otherwise = m_code.NewLabel();
        // Required: after an error in the condition, Resume Next goes into the block.
        const Label body = m_code.NewLabel();
        if (i > 0) {
            m_code.Mark(branch.Place.Line, m_code.Here(), body);
        } else {
            m_code.Mark(m_place.Line, m_code.Here(), body);
        }
        m_place = i > 0 ? branch.Place : m_place;
        JumpOn(*branch.Condition, false, otherwise);
        m_code.Bind(body);
        CompileBlock(branch.Body);
        const bool isLast = i + 1 == node.Branches.size() && node.ElseBody.empty();
        if (!isLast) {
            m_code.EmitJump(Opcode::Jump, end);
        }
        m_code.Bind(otherwise);
    }
    CompileBlock(node.ElseBody);
    m_code.Bind(end);
}

void ProcedureCompiler::On(const WithStatement& node, SourcePlace) {
    WithContext context;
    const std::size_t held = m_held.size();
    const Register slot = m_code.NewGeneric();
    const std::uint32_t nothing = m_scope.AddConstant(Value::Nothing());
    m_code.SetInitial(slot, Value::Nothing());
    // Required: after an error in the head, Resume Next goes into the block, where every member is error 91.
    const Label body = m_code.NewLabel();
    m_code.Mark(m_place.Line, m_code.Here(), body);
    if (m_mayJumpIntoLoops) {
        m_code.EmitWide(Opcode::LoadConstant, slot, nothing);
    }
    HoldArraysOf(*node.Target, node);
    const Operand target = Evaluate(*node.Target);
    context.Target = target;
    context.Target.Constant = nullptr;
    context.Target.Slot = slot;
    const bool isRecord = target.Type.Kind == DeclaredKind::Record && !target.Type.IsArray;
    const bool mayBeObject =
        !target.Type.IsArray && (target.Type.Kind == DeclaredKind::Object ||
                                 (target.Type.Kind == DeclaredKind::Variant && !target.Constant));
    if (!isRecord && !mayBeObject) {
        Error(compileerror::kOther, m_place, "With needs an object or a value of a Type");
    } else {
        m_code.Emit(
            isRecord ? Opcode::Move : Opcode::WithObject, context.Target.Slot, SlotOf(target));
    }
    m_code.Bind(body);
    m_withs.push_back(context);
    CompileBlock(node.Body);
    m_withs.pop_back();
    m_code.EmitWide(Opcode::LoadConstant, slot, nothing);
    for (; m_held.size() > held; m_held.pop_back()) {
        m_code.Emit(Opcode::Clear, m_held.back().State);
    }
}

/// An array keeps its elements while a With works on one of them: a `ReDim` would leave that to nobody.
void ProcedureCompiler::HoldArraysOf(const Expression& target, const WithStatement& node) {
    if (const auto* member = std::get_if<MemberNode>(&target.Node); member && member->Target) {
        HoldArraysOf(*member->Target, node);
        return;
    }
    const auto* index = std::get_if<IndexNode>(&target.Node);
    if (index == nullptr) {
        return;
    }
    HoldArraysOf(*index->Target, node);
    const bool isElement = PlaceOf(target).IsPlace && !MayRunCode(*index->Target);
    const DeclaredType type = isElement ? PlaceOf(*index->Target).Type : DeclaredType{};
    if (!type.IsArray || type.Kind != DeclaredKind::Record) {
        return;
    }
    const std::size_t mark = m_code.TemporaryMark();
    m_held.push_back({&node, m_code.NewGeneric(), m_loops.size()});
    m_code.Emit(Opcode::HoldArray, m_held.back().State, SlotOf(Evaluate(*index->Target)));
    m_code.ReleaseTemporaries(mark);
}

void ProcedureCompiler::On(const ExitStatement& node, SourcePlace place) {
    const bool leavesProcedure = node.Kind == ExitKind::Sub || node.Kind == ExitKind::Function ||
                                 node.Kind == ExitKind::Property;
    if (leavesProcedure) {
        const ProcedureKind kind = m_node.Kind;
        const bool fits = (node.Kind == ExitKind::Sub && kind == ProcedureKind::Sub) ||
                          (node.Kind == ExitKind::Function && kind == ProcedureKind::Function) ||
                          (node.Kind == ExitKind::Property && kind > ProcedureKind::Function);
        if (!fits) {
            Error(
                compileerror::kInvalidExit,
                place,
                "This Exit does not fit the procedure around it");
        }
        m_code.Emit(Opcode::ClearError);
        EmitReturn();
        return;
    }
    for (std::size_t i = m_loops.size(); i-- > 0;) {
        if (m_loops[i].Kind == node.Kind) {
            for (auto block = m_held.rbegin(); block != m_held.rend() && block->Loops > i;
                 ++block) {
                LeaveBlock(*block);
            }
            m_code.EmitJump(Opcode::Jump, m_loops[i].Exit);
            return;
        }
    }
    Error(
        compileerror::kInvalidExit,
        place,
        node.Kind == ExitKind::Do ? "'Exit Do' stands outside any Do loop"
                                  : "'Exit For' stands outside any For loop");
}

void ProcedureCompiler::On(const EndStatement&, SourcePlace) {
    m_code.Emit(Opcode::End);
}

void ProcedureCompiler::On(const DebugPrintStatement& node, SourcePlace) {
    bool isOpen = false;
    for (const PrintPart& part : node.Parts) {
        const std::size_t mark = m_code.TemporaryMark();
        if (part.Value) {
            const Operand value = Evaluate(*part.Value);
            const Opcode code = part.Kind == PrintPartKind::Value    ? Opcode::PrintValue
                                : part.Kind == PrintPartKind::Spaces ? Opcode::PrintSpaces
                                                                     : Opcode::PrintTab;
            m_code.Emit(
                code, part.Kind == PrintPartKind::Value ? SlotOf(value) : LongSlotOf(value));
        } else if (part.Kind == PrintPartKind::Tab) {
            m_code.Emit(Opcode::PrintZone);
        }
        if (part.Separator == PrintSeparator::Zone) {
            m_code.Emit(Opcode::PrintZone);
        }
        isOpen = part.Separator != PrintSeparator::None;
        m_code.ReleaseTemporaries(mark);
    }
    if (!isOpen) {
        m_code.Emit(Opcode::PrintEnd);
    }
}

void ProcedureCompiler::On(const DebugAssertStatement& node, SourcePlace) {
    if (node.Condition) {
        Evaluate(*node.Condition);
    }
}

void ProcedureCompiler::On(const RefusedStatement& node, SourcePlace place) {
    if (node.Call) {
        const auto* name = std::get_if<NameNode>(&node.Call->Callee->Node);
        if (name != nullptr && (m_locals.contains(modTextCase::ToLower(name->Name)) ||
                                m_scope.Find(name->Name) != nullptr)) {
            On(*node.Call, place);
            return;
        }
    }
    m_scope.Messages.Warn(place, "'" + node.Name + "' is refused: reaching it raises error 70");
    m_code.EmitWide(Opcode::Refuse, 0, m_scope.AddConstant(Value::Text(node.Name)));
}

}  // namespace dorvik::basic
