#include "ErrorFlowCompiler.h"

#include "ExpressionCompiler.h"
#include "JumpCompiler.h"
#include "OperandCompiler.h"

namespace dorvik::basic {

void ErrorFlowCompiler::Compile(const OnErrorStatement& node, SourcePlace place) {
    switch (node.Policy) {
        case ErrorPolicy::GoToLabel:
            m_context.HasHandler = true;
            m_code.EmitJump(Opcode::HandlerTo, Jumps().LabelOf(node.Label, place));
            break;
        case ErrorPolicy::ResumeNext: m_code.Emit(Opcode::HandlerNext); break;
        case ErrorPolicy::Off: m_code.Emit(Opcode::HandlerOff); break;
        case ErrorPolicy::EndHandler: m_code.Emit(Opcode::HandlerEnd); break;
    }
}

void ErrorFlowCompiler::Compile(const ResumeStatement& node, SourcePlace place) {
    switch (node.Kind) {
        case ResumeKind::Same: m_code.Emit(Opcode::ResumeSame); break;
        case ResumeKind::Next: m_code.Emit(Opcode::ResumeNext); break;
        case ResumeKind::Label:
            Jumps().LeaveBlocksFor(node.Label);
            m_code.EmitJump(Opcode::ResumeLabel, Jumps().LabelOf(node.Label, place));
            break;
    }
}

void ErrorFlowCompiler::Compile(const ErrorStatement& node, SourcePlace) {
    m_code.Emit(Opcode::RaiseNumber, Operands().LongSlotOf(Expressions().Evaluate(*node.Number)));
}

}  // namespace dorvik::basic
