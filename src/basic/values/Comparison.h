#pragma once

#include "basic/values/Operators.h"

#include <cstdint>

/// How values stand to each other.
namespace dorvik::basic::modComparison {

/// `Unknown`: one of them is Null.
enum class Order : std::int8_t { Less = -1, Same = 0, Greater = 1, Unknown = 2 };

Order Compare(const Value& left, const Value& right, OperandFacts facts);
/// Whether the order is what a comparison operator asks for; never for `Unknown`.
bool Satisfies(BinaryOperator comparison, Order order);
/// Whether both are the same object; raises 424 for anything but objects.
bool IsSameObject(const Value& left, const Value& right);

}  // namespace dorvik::basic::modComparison
