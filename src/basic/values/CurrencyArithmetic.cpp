#include "CurrencyArithmetic.h"

#include "basic/values/DecimalNumber.h"
#include "basic/values/RuntimeErrors.h"

#include <limits>

namespace dorvik::basic::modCurrency {

namespace {

constexpr int kUnit = 10'000;

std::int64_t Checked(SignedWide number) {
    if (number < std::numeric_limits<std::int64_t>::min() ||
        number > std::numeric_limits<std::int64_t>::max()) {
        RaiseError(runtimeerror::kOverflow);
    }
    return static_cast<std::int64_t>(number);
}

}  // namespace

std::int64_t Add(std::int64_t left, std::int64_t right) {
    return Checked(SignedWide{left} + right);
}

std::int64_t Subtract(std::int64_t left, std::int64_t right) {
    return Checked(SignedWide{left} - right);
}

std::int64_t Multiply(std::int64_t left, std::int64_t right) {
    const SignedWide product = SignedWide{left} * right;
    const SignedWide whole = product / kUnit;
    const auto rest = static_cast<int>(product % kUnit);
    const int distance = rest < 0 ? -rest : rest;
    const bool isAway = distance > kUnit / 2 || (distance == kUnit / 2 && whole % 2 != 0);
    return Checked(isAway ? whole + (product < 0 ? -1 : 1) : whole);
}

std::int64_t Negate(std::int64_t number) {
    return Subtract(0, number);
}

}  // namespace dorvik::basic::modCurrency
