#pragma once

#include "CodeWriter.h"
#include "ModuleScope.h"
#include "OpenBlocks.h"
#include "Variable.h"

#include <optional>

namespace dorvik::basic {

class NameResolver;
class OperandCompiler;
class VariableCompiler;
class LValueCompiler;
class ExpressionCompiler;
class OperatorCompiler;
class ConditionCompiler;
class MemberCompiler;
class CallCompiler;
class ArgumentCompiler;
class ExtensionCompiler;
class StoreCompiler;
class JumpCompiler;
class StatementCompiler;

/// The parts of the compiler that need each other: an expression holds calls, a call holds expressions.
struct ProcedureParts {
    NameResolver& Names;
    OperandCompiler& Operands;
    VariableCompiler& Variables;
    LValueCompiler& LValues;
    ExpressionCompiler& Expressions;
    OperatorCompiler& Operators;
    ConditionCompiler& Conditions;
    MemberCompiler& Members;
    CallCompiler& Calls;
    ArgumentCompiler& Arguments;
    ExtensionCompiler& Extensions;
    StoreCompiler& Stores;
    JumpCompiler& Jumps;
    StatementCompiler& Statements;
};

/// What the parts of the compiler share while they compile one procedure.
/// REQUIRES: the scope and the parts outlive it.
struct ProcedureContext {
    ProcedureContext(ModuleScope& scope, std::size_t index, const ProcedureParts& parts)
        : Scope(scope),
          Target(scope.Result->Procedures[index]),
          Node(*scope.Nodes[index]),
          Parts(parts),
          Code(*scope.Result, Target) {}

    ModuleScope& Scope;
    Procedure& Target;  // gets the code
    const ProcedureNode& Node;
    ProcedureParts Parts;
    CodeWriter Code;
    SourcePlace Place;  // of the statement being compiled
    OpenBlocks Blocks;
    std::optional<Variable> Result;  // of a Function or a Property Get
    bool HasHandler = false;         // there is an On Error GoTo
};

}  // namespace dorvik::basic
