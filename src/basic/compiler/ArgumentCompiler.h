#pragma once

#include "AfterCall.h"
#include "LValue.h"
#include "Operand.h"
#include "ProcedurePart.h"

#include <vector>

namespace dorvik::basic {

/// Puts arguments into the slots from which a call takes them, and what the callee stored back into their variables.
class ArgumentCompiler : private ProcedurePart {
public:
    explicit ArgumentCompiler(ProcedureContext& context) : ProcedurePart(context) {}

    /// One argument, null if it is left out. What must be done after the call is added to `after`.
    void Pass(
        const Parameter& parameter,
        const Argument* argument,
        Register slot,
        SourcePlace place,
        std::vector<AfterCall>& after);
    /// The arguments of a ParamArray. Values go in as copies, and back to the variables that they came from.
    void PassRest(
        const std::vector<Argument>& arguments,
        std::size_t first,
        Register slot,
        std::vector<AfterCall>& after);
    /// Does what is to be done after the call, or after the use of a reference.
    void Finish(const std::vector<AfterCall>& after);
    /// The value that a Property Let or Set gets as its last argument.
    void PassNewValue(const Parameter& parameter, const Operand& value, bool isSet, Register slot);
    /// The value of an argument for a callee that keeps it.
    void EvaluateCopy(const Argument& argument, Register slot);
    /// The value of an argument for a callee that only reads it; Missing for null.
    void EvaluateShared(const Argument* argument, Register slot);
    static bool HasNames(const std::vector<Argument>& arguments);

private:
    void PassByValue(const DeclaredType& type, const Expression& expression, Register slot);
    void PassByReference(
        const Parameter& parameter,
        const Expression& expression,
        const LValue& lvalue,
        Register slot,
        std::vector<AfterCall>& after);
    void PassTemporary(const Parameter& parameter, const Expression& expression, Register slot);
    void PassDefault(const Parameter& parameter, Register slot);
};

}  // namespace dorvik::basic
