#include "ProcedureCompiler.h"

#include "ArgumentCompiler.h"
#include "CallCompiler.h"
#include "ConditionCompiler.h"
#include "ExpressionCompiler.h"
#include "ExtensionCompiler.h"
#include "JumpCompiler.h"
#include "LValueCompiler.h"
#include "MemberCompiler.h"
#include "NameResolver.h"
#include "OperandCompiler.h"
#include "OperatorCompiler.h"
#include "StatementCompiler.h"
#include "StoreCompiler.h"
#include "VariableCompiler.h"

namespace dorvik::basic {

namespace {

/// The parts that compile a procedure, wired to each other.
class ProcedureCompiler {
public:
    ProcedureCompiler(ModuleScope& scope, std::size_t index)
        : m_context(
              scope,
              index,
              {m_names,
               m_operands,
               m_variables,
               m_lvalues,
               m_expressions,
               m_operators,
               m_conditions,
               m_members,
               m_calls,
               m_arguments,
               m_extensions,
               m_stores,
               m_jumps,
               m_statements}),
          m_names(m_context),
          m_operands(m_context),
          m_variables(m_context),
          m_lvalues(m_context),
          m_expressions(m_context),
          m_operators(m_context),
          m_conditions(m_context),
          m_members(m_context),
          m_calls(m_context),
          m_arguments(m_context),
          m_extensions(m_context),
          m_stores(m_context),
          m_jumps(m_context),
          m_statements(m_context) {}

    void Compile();

private:
    ProcedureContext m_context;
    NameResolver m_names;
    OperandCompiler m_operands;
    VariableCompiler m_variables;
    LValueCompiler m_lvalues;
    ExpressionCompiler m_expressions;
    OperatorCompiler m_operators;
    ConditionCompiler m_conditions;
    MemberCompiler m_members;
    CallCompiler m_calls;
    ArgumentCompiler m_arguments;
    ExtensionCompiler m_extensions;
    StoreCompiler m_stores;
    JumpCompiler m_jumps;
    StatementCompiler m_statements;
};

void ProcedureCompiler::Compile() {
    const ProcedureNode& node = m_context.Node;
    CodeWriter& code = m_context.Code;
    m_context.Place = node.Place;
    const Label begin = code.Here();
    code.Mark(node.Place.Line, begin, begin);
    m_names.DeclareParameters();
    m_jumps.CollectLabels(node.Body);
    m_names.DeclareLocals(node.Body);
    m_statements.CompileBlock(node.Body);
    m_context.Place = node.EndPlace;
    const Label end = code.Here();
    code.Mark(node.EndPlace.Line, end, end);
    if (m_context.HasHandler) {
        code.Emit(Opcode::ClearHandledError);
    }
    m_jumps.EmitReturn();
    m_jumps.WarnOfUnusedLabels();
    if (!code.Finish()) {
        m_context.Scope.Messages.Error(
            compileerror::kOther,
            node.Place,
            "The procedure '" + node.Name + "' has too many variables or expressions");
    }
}

}  // namespace

void CompileProcedure(ModuleScope& scope, std::size_t index) {
    ProcedureCompiler(scope, index).Compile();
}

}  // namespace dorvik::basic
