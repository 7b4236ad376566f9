#pragma once

#include "Token.h"
#include "basic/values/Operators.h"

namespace dorvik::basic {

/// How tightly the operators bind, from 1 up.
namespace precedence {
inline constexpr int kImp = 1;
inline constexpr int kEqv = 2;
inline constexpr int kXor = 3;
inline constexpr int kOr = 4;
inline constexpr int kAnd = 5;
inline constexpr int kNot = 6;
inline constexpr int kComparison = 7;
inline constexpr int kConcatenation = 8;
inline constexpr int kAddition = 9;
inline constexpr int kModulo = 10;
inline constexpr int kIntegerDivision = 11;
inline constexpr int kMultiplication = 12;
inline constexpr int kSign = 13;
inline constexpr int kPower = 14;
}  // namespace precedence

struct OperatorRow {
    BinaryOperator Operator = BinaryOperator::Power;
    int Level = 0;  // 0: the token is not an operator between two operands
};

/// The binary operator that a token stands for.
OperatorRow BinaryOperatorOf(const Token& token);

}  // namespace dorvik::basic
