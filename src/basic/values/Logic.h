#pragma once

#include "basic/values/Operators.h"

/// The bitwise operators with Null as the third truth value.
namespace dorvik::basic::modLogic {

/// REQUIRES: one of And, Or, Xor, Eqv, Imp.
Value Apply(BinaryOperator operation, const Value& left, const Value& right);
Value Not(const Value& operand);

}  // namespace dorvik::basic::modLogic
