#pragma once

#include <cstdint>

/// Exact arithmetic on Currency, whole numbers of ten thousandths. Raises 6 beyond 64 bits.
namespace dorvik::basic::modCurrency {

std::int64_t Add(std::int64_t left, std::int64_t right);
std::int64_t Subtract(std::int64_t left, std::int64_t right);
/// Rounded half to even at the fourth place.
std::int64_t Multiply(std::int64_t left, std::int64_t right);
std::int64_t Negate(std::int64_t number);

}  // namespace dorvik::basic::modCurrency
