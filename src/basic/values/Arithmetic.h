#pragma once

#include "basic/values/Operators.h"

/// The operators that calculate. All take operands of any type; `Apply` is the way in.
namespace dorvik::basic::modArithmetic {

Value Add(const Value& left, const Value& right, OperandFacts facts);
Value Subtract(const Value& left, const Value& right, OperandFacts facts);
Value Multiply(const Value& left, const Value& right, OperandFacts facts);
Value Divide(const Value& left, const Value& right, OperandFacts facts);
Value IntegerDivide(const Value& left, const Value& right);
Value Modulo(const Value& left, const Value& right);
Value Power(const Value& left, const Value& right);
Value Negate(const Value& operand, bool isVariant);
Value Plus(const Value& operand);

}  // namespace dorvik::basic::modArithmetic
