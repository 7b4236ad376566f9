#pragma once

#include "ProcedureContext.h"

#include <string>
#include <utility>

namespace dorvik::basic {

/// What the parts of the compiler of one procedure have in common: short names for what is in the context.
/// REQUIRES: the context outlives the part.
class ProcedurePart {
protected:
    explicit ProcedurePart(ProcedureContext& context)
        : m_context(context), m_scope(context.Scope), m_code(context.Code) {}
    ~ProcedurePart() = default;

    NameResolver& Names() const { return m_context.Parts.Names; }
    OperandCompiler& Operands() const { return m_context.Parts.Operands; }
    VariableCompiler& Variables() const { return m_context.Parts.Variables; }
    LValueCompiler& LValues() const { return m_context.Parts.LValues; }
    ExpressionCompiler& Expressions() const { return m_context.Parts.Expressions; }
    OperatorCompiler& Operators() const { return m_context.Parts.Operators; }
    ConditionCompiler& Conditions() const { return m_context.Parts.Conditions; }
    MemberCompiler& Members() const { return m_context.Parts.Members; }
    CallCompiler& Calls() const { return m_context.Parts.Calls; }
    ArgumentCompiler& Arguments() const { return m_context.Parts.Arguments; }
    ExtensionCompiler& Extensions() const { return m_context.Parts.Extensions; }
    StoreCompiler& Stores() const { return m_context.Parts.Stores; }
    JumpCompiler& Jumps() const { return m_context.Parts.Jumps; }
    StatementCompiler& Statements() const { return m_context.Parts.Statements; }

    /// Something that keeps the module from being loaded. Compiling continues, to find the other errors.
    void Error(std::int32_t number, SourcePlace place, std::string text) {
        m_scope.Messages.Error(number, place, std::move(text));
    }

    ProcedureContext& m_context;
    ModuleScope& m_scope;
    CodeWriter& m_code;
};

}  // namespace dorvik::basic
