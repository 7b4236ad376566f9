#pragma once

#include "Variable.h"

namespace dorvik::basic {

/// What an expression stands for if something can be assigned to it by reference: a variable, an element of an array,
/// a member of a Type.
struct LValue {
    bool IsAssignable = false;  // false: the expression is only a value, and nothing else is set
    bool IsVariable = false;
    basic::Variable Variable;
    DeclaredType Type;  // Variant also for the elements of an array in a Variant
    bool IsFixedArray = false;
};

}  // namespace dorvik::basic
