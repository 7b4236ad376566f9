#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string_view>

namespace dorvik::basic {

__extension__ typedef unsigned __int128 UnsignedWide;  // NOLINT(modernize-use-using)
__extension__ typedef __int128 SignedWide;             // NOLINT(modernize-use-using)

/// A number of 96 bits with 0 to 28 decimal places: magnitude / 10^scale.
struct DecimalNumber {
    UnsignedWide Magnitude = 0;  // below 2^96
    int Scale = 0;
    bool IsNegative = false;  // never for zero
};

/// Exact arithmetic on decimals; what does not fit 28 places or 96 bits is rounded half to even in the
/// last place that does. Raises 6 beyond 79228162514264337593543950335.
namespace modDecimal {

DecimalNumber Add(const DecimalNumber& left, const DecimalNumber& right);
DecimalNumber Subtract(const DecimalNumber& left, const DecimalNumber& right);
DecimalNumber Multiply(const DecimalNumber& left, const DecimalNumber& right);
/// REQUIRES: right is not zero.
DecimalNumber Divide(const DecimalNumber& left, const DecimalNumber& right);
DecimalNumber Negate(const DecimalNumber& number);
std::strong_ordering Compare(const DecimalNumber& left, const DecimalNumber& right);

/// Rounded half to even to at most `places` decimal places.
DecimalNumber Round(const DecimalNumber& number, int places);
/// Cut towards zero to a whole number.
DecimalNumber Truncate(const DecimalNumber& number);

DecimalNumber FromWhole(std::int64_t number);
DecimalNumber FromCurrency(std::int64_t tenThousandths);
/// By 15 significant digits (7 for a Single); raises 6 when too large.
DecimalNumber FromDouble(double number);
DecimalNumber FromSingle(float number);
/// `digits` with at most one "." and nothing else, times 10^exponent; nothing beyond the range.
std::optional<DecimalNumber> FromDigits(std::string_view digits, int exponent, bool isNegative);

double ToDouble(const DecimalNumber& number);
std::int64_t ToWhole(const DecimalNumber& number);     // half to even; 6
std::int64_t ToCurrency(const DecimalNumber& number);  // ten thousandths, half to even; 6

}  // namespace modDecimal

}  // namespace dorvik::basic
