#pragma once

#include "AfterCall.h"
#include "LValue.h"
#include "Operand.h"
#include "ProcedurePart.h"

#include <vector>

namespace dorvik::basic {

/// Finds out whether an expression can be assigned to, and makes references to those that can.
class LValueCompiler : private ProcedurePart {
public:
    explicit LValueCompiler(ProcedureContext& context) : ProcedurePart(context) {}

    /// The slot `pin` keeps the array until it is cleared.
    void ReferToElement(
        const Operand& array, const std::vector<Argument>& indices, Register pin, Register target);
    /// What an expression stands for if something can be stored there. Writes no code.
    LValue LValueOf(const Expression& expression);
    /// `a()` of a whole array stands for the array itself.
    const Expression& WithoutEmptyParentheses(const Expression& expression);
    /// Makes the slot `target` a reference to the lvalue of the expression. What must be done once the reference has been
    /// used is added to `after`.
    void ReferTo(
        const Expression& expression,
        const LValue& lvalue,
        Register target,
        std::vector<AfterCall>& after);
    /// The array or object in whose element something is stored. What an object or a function gives is not a variable:
    /// an array that comes from there is copied first, so that the change is lost.
    Operand HolderOf(const Expression& expression);

private:
    LValue LValueOfMember(const MemberNode& node);
};

}  // namespace dorvik::basic
