#pragma once

#include "basic/values/Value.h"

namespace dorvik::basic {

enum class BinaryOperator : std::uint8_t {
    Power,
    Multiply,
    Divide,
    IntegerDivide,
    Modulo,
    Add,
    Subtract,
    Concatenate,
    Equal,
    NotEqual,
    Less,
    Greater,
    LessOrEqual,
    GreaterOrEqual,
    Like,
    Is,
    And,
    Or,
    Xor,
    Eqv,
    Imp,
};

enum class UnaryOperator : std::uint8_t { Negate, Plus, Not };

/// What the compiler knows of the operands. An operand is a Variant if it is a Variant variable, a
/// Variant element or the result of something without a declared type; a literal is typed. It
/// decides between overflow and widening, and how a text meets a number in a comparison.
struct OperandFacts {
    bool LeftIsVariant = true;
    bool RightIsVariant = true;
    bool ComparesText = false;  // Option Compare Text
};

/// Objects among the operands answer with their default member. Raises 5, 6, 11, 13, 91, 93, 424, 438, 450.
Value Apply(BinaryOperator operation, const Value& left, const Value& right, OperandFacts facts);
Value Apply(UnaryOperator operation, const Value& operand, bool isVariant);

/// Whether a comparison (Equal to GreaterOrEqual) holds, Null counting as False: for a branch, without
/// making a value of it.
bool Holds(BinaryOperator comparison, const Value& left, const Value& right, OperandFacts facts);

/// target = target & addition. A text that no one shares grows in place, so that building a long text
/// takes time by its length.
void ConcatenateTo(Value& target, const Value& addition);

/// Whether a condition holds: Null counts as False. Raises 13 for a text that is not a truth value or number.
bool IsTrue(const Value& condition);

}  // namespace dorvik::basic
