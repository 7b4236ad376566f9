#pragma once

#include "basic/values/DecimalNumber.h"
#include "basic/values/NumberInText.h"  // IWYU pragma: export

#include <array>
#include <cstdint>
#include <string_view>

namespace dorvik::basic {

/// Room for the text of any number. The texts below point into it.
using NumberBuffer = std::array<char, 64>;

std::string_view TextOfWhole(std::int64_t number, NumberBuffer& buffer);
/// At most 7 (Single) or 15 (Double) significant digits and no more than needed; `1E+15`, `1.5E-20`
/// where that many digits do not reach the point or do not suffice after it.
std::string_view TextOfSingle(float number, NumberBuffer& buffer);
std::string_view TextOfDouble(double number, NumberBuffer& buffer);
std::string_view TextOfCurrency(std::int64_t tenThousandths, NumberBuffer& buffer);
std::string_view TextOfDecimal(const DecimalNumber& number, NumberBuffer& buffer);

}  // namespace dorvik::basic
