#pragma once

#include "basic/values/Operators.h"

#include <cstdint>

/// How values compare.
namespace dorvik::basic::modComparison {

/// `Unknown`: one of them is Null.
enum class Order : std::int8_t { Less = -1, Same = 0, Greater = 1, Unknown = 2 };

Order Compare(const Value& left, const Value& right, OperandFacts facts);
/// Whether the order satisfies a comparison operator; never for `Unknown`.
bool Satisfies(BinaryOperator comparison, Order order);
/// Whether both are the same object; raises 424 for anything but objects.
bool IsSameObject(const Value& left, const Value& right);

}  // namespace dorvik::basic::modComparison
