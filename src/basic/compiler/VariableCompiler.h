#pragma once

#include "Operand.h"
#include "ProcedurePart.h"

namespace dorvik::basic {

/// Loads and stores variables, wherever they are, and what references refer to.
class VariableCompiler : private ProcedurePart {
public:
    explicit VariableCompiler(ProcedureContext& context) : ProcedurePart(context) {}

    /// The value of the variable; an `As New` one is made to hold an object first.
    Operand Load(const Variable& variable);
    /// Creates the object of an `As New` variable that holds none. REQUIRES: it is one.
    void EnsureNew(const Variable& variable);
    /// Makes the slot `target` a reference to the variable.
    void ReferTo(const Variable& variable, Register target);
    /// Set to a variable of a type that holds no objects is an error.
    void CheckSet(const DeclaredType& type, bool isSet);
    /// Let or Set to a variable that is not a whole array or a record.
    void Store(const Variable& variable, const Operand& value, bool isSet);
    /// The same through a reference; `type` is that of the variable that it refers to.
    void
    StoreReference(Register reference, const Operand& value, const DeclaredType& type, bool isSet);
    /// The array that a For Each walks stays in its variable.
    void RejectIfLocked(Register variable);
};

}  // namespace dorvik::basic
