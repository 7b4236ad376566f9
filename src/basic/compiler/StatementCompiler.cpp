#include "StatementCompiler.h"

#include "CallCompiler.h"
#include "ConditionCompiler.h"
#include "ExpressionCompiler.h"
#include "JumpCompiler.h"
#include "NameResolver.h"
#include "OperandCompiler.h"

namespace dorvik::basic {

StatementCompiler::StatementCompiler(ProcedureContext& context)
    : ProcedurePart(context),
      m_assignments(context),
      m_arrays(context),
      m_texts(context),
      m_loops(context),
      m_selects(context),
      m_withs(context),
      m_errorFlow(context) {}

void StatementCompiler::CompileBlock(const Block& block) {
    for (const Statement& statement : block) {
        CompileStatement(statement);
    }
}

void StatementCompiler::CompileStatement(const Statement& statement) {
    m_context.Place = statement.Place;
    const std::size_t temporaries = m_code.TemporaryMark();
    const Label again = m_code.Here();
    const Label next = m_code.NewLabel();
    m_code.Mark(statement.Place.Line, again, next);
    std::visit([&](const auto& node) { Compile(node, statement.Place); }, statement.Node);
    m_code.Bind(next);
    m_code.ReleaseTemporaries(temporaries);
}

void StatementCompiler::Compile(const IfStatement& node, SourcePlace) {
    const Label end = m_code.NewLabel();
    for (std::size_t i = 0; i < node.Branches.size(); ++i) {
        const IfBranch& branch = node.Branches[i];
        const Label otherwise = m_code.NewLabel();
        // Required: after an error in the condition, Resume Next goes into the block.
        const Label body = m_code.NewLabel();
        if (i > 0) {
            m_code.Mark(branch.Place.Line, m_code.Here(), body);
        } else {
            m_code.Mark(m_context.Place.Line, m_code.Here(), body);
        }
        m_context.Place = i > 0 ? branch.Place : m_context.Place;
        Conditions().JumpOn(*branch.Condition, false, otherwise);
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

void StatementCompiler::Compile(const DebugPrintStatement& node, SourcePlace) {
    bool isOpen = false;
    for (const PrintPart& part : node.Parts) {
        const std::size_t mark = m_code.TemporaryMark();
        if (part.Value) {
            const Operand value = Expressions().Evaluate(*part.Value);
            const Opcode code = part.Kind == PrintPartKind::Value    ? Opcode::PrintValue
                                : part.Kind == PrintPartKind::Spaces ? Opcode::PrintSpaces
                                                                     : Opcode::PrintTab;
            m_code.Emit(
                code,
                part.Kind == PrintPartKind::Value ? Operands().SlotOf(value)
                                                  : Operands().LongSlotOf(value));
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

void StatementCompiler::Compile(const DebugAssertStatement& node, SourcePlace) {
    if (node.Condition) {
        Expressions().Evaluate(*node.Condition);
    }
}

void StatementCompiler::Compile(const UnsupportedStatement& node, SourcePlace place) {
    if (node.Call) {
        const auto* name = std::get_if<NameNode>(&node.Call->Callee->Node);
        if (name != nullptr &&
            (Names().HasLocal(name->Name) || m_scope.Find(name->Name) != nullptr)) {
            Compile(*node.Call, place);
            return;
        }
    }
    m_scope.Messages.Warn(place, "'" + node.Name + "' is refused: reaching it raises error 70");
    m_code.EmitWide(Opcode::Refuse, 0, m_scope.AddConstant(Value::Text(node.Name)));
}

void StatementCompiler::Compile(const CallStatement& node, SourcePlace place) {
    Calls().Compile(node, place);
}

void StatementCompiler::Compile(const LabelStatement& node, SourcePlace place) {
    Jumps().Compile(node, place);
}

void StatementCompiler::Compile(const GoToStatement& node, SourcePlace place) {
    Jumps().Compile(node, place);
}

void StatementCompiler::Compile(const GoSubStatement& node, SourcePlace place) {
    Jumps().Compile(node, place);
}

void StatementCompiler::Compile(const ReturnStatement& node, SourcePlace place) {
    Jumps().Compile(node, place);
}

void StatementCompiler::Compile(const OnJumpStatement& node, SourcePlace place) {
    Jumps().Compile(node, place);
}

void StatementCompiler::Compile(const ExitStatement& node, SourcePlace place) {
    Jumps().Compile(node, place);
}

}  // namespace dorvik::basic
