#pragma once

#include "ArrayStatementCompiler.h"
#include "AssignmentCompiler.h"
#include "ErrorFlowCompiler.h"
#include "LoopCompiler.h"
#include "ProcedurePart.h"
#include "SelectCompiler.h"
#include "TextAssignmentCompiler.h"
#include "WithCompiler.h"

namespace dorvik::basic {

/// Compiles blocks statement by statement; knows which part compiles which statement.
class StatementCompiler : private ProcedurePart {
public:
    explicit StatementCompiler(ProcedureContext& context);

    void CompileBlock(const Block& block);

private:
    void CompileStatement(const Statement& statement);
    void Compile(const IfStatement& node, SourcePlace place);
    void Compile(const DebugPrintStatement& node, SourcePlace place);
    void Compile(const DebugAssertStatement& node, SourcePlace place);
    void Compile(const UnsupportedStatement& node, SourcePlace place);
    void Compile(const EndStatement&, SourcePlace) { m_code.Emit(Opcode::End); }
    // The resolver has declared the names already; a script has no debugger that could stop it.
    void Compile(const DeclareStatement&, SourcePlace) {}
    void Compile(const ConstStatement&, SourcePlace) {}
    void Compile(const StopStatement&, SourcePlace) {}
    // What other parts compile.
    void Compile(const AssignStatement& node, SourcePlace place) {
        m_assignments.Compile(node, place);
    }
    void Compile(const RedimStatement& node, SourcePlace place) { m_arrays.Compile(node, place); }
    void Compile(const EraseStatement& node, SourcePlace place) { m_arrays.Compile(node, place); }
    void Compile(const TextAssignStatement& node, SourcePlace place) {
        m_texts.Compile(node, place);
    }
    void Compile(const SelectStatement& node, SourcePlace place) { m_selects.Compile(node, place); }
    void Compile(const ForStatement& node, SourcePlace place) { m_loops.Compile(node, place); }
    void Compile(const ForEachStatement& node, SourcePlace place) { m_loops.Compile(node, place); }
    void Compile(const LoopStatement& node, SourcePlace place) { m_loops.Compile(node, place); }
    void Compile(const WithStatement& node, SourcePlace place) { m_withs.Compile(node, place); }
    void Compile(const OnErrorStatement& node, SourcePlace place) {
        m_errorFlow.Compile(node, place);
    }
    void Compile(const ResumeStatement& node, SourcePlace place) {
        m_errorFlow.Compile(node, place);
    }
    void Compile(const ErrorStatement& node, SourcePlace place) {
        m_errorFlow.Compile(node, place);
    }
    void Compile(const CallStatement& node, SourcePlace place);
    void Compile(const LabelStatement& node, SourcePlace place);
    void Compile(const GoToStatement& node, SourcePlace place);
    void Compile(const GoSubStatement& node, SourcePlace place);
    void Compile(const ReturnStatement& node, SourcePlace place);
    void Compile(const OnJumpStatement& node, SourcePlace place);
    void Compile(const ExitStatement& node, SourcePlace place);

    AssignmentCompiler m_assignments;
    ArrayStatementCompiler m_arrays;
    TextAssignmentCompiler m_texts;
    LoopCompiler m_loops;
    SelectCompiler m_selects;
    WithCompiler m_withs;
    ErrorFlowCompiler m_errorFlow;
};

}  // namespace dorvik::basic
