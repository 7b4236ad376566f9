#pragma once

#include "CodeWriter.h"

namespace dorvik::basic {

/// The value of an expression: the slot that holds it, or a constant without a slot yet.
struct Operand {
    Register Slot = kNoSlot;
    DeclaredType Type;          // what the slot is sure to hold; Variant: anything
    bool IsTyped = false;       // counts as typed for the operators, whatever is known of the slot
    bool IsScalar = false;      // neither an object nor an array, though the type is not known
    bool IsFresh = false;       // no variable shares the value, so it may be kept without a copy
    bool MakesObjects = false;  // an array whose elements are created at their first use
    const Value* Constant = nullptr;  // outlives the compilation of the procedure
};

/// Where the user of a value would like to have it, if it is of that kind. An expression is free to ignore it.
struct ResultHint {
    Register Slot = kNoSlot;
    DeclaredKind Kind = DeclaredKind::Variant;
};

}  // namespace dorvik::basic
