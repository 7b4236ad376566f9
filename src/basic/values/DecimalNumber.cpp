#include "basic/values/DecimalNumber.h"

#include "WideNumber.h"
#include "basic/values/NumberText.h"
#include "basic/values/RuntimeErrors.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace dorvik::basic::modDecimal {

namespace {

constexpr int kMostPlaces = 28;
constexpr int kCurrencyPlaces = 4;
constexpr int kMostDigitsRead = 39;  // of a magnitude of 128 bits
constexpr UnsignedWide kBeyond = UnsignedWide{1} << 96;

/// What was cut off a number: its first digit, and whether anything but zeros followed.
struct CutOff {
    unsigned Digit = 0;
    bool HasMore = false;

    void Push(unsigned digit) {
        HasMore = HasMore || Digit != 0;
        Digit = digit;
    }
    bool RoundsUp(bool isOdd) const { return Digit > 5 || (Digit == 5 && (HasMore || isOdd)); }
};

DecimalNumber Made(UnsignedWide magnitude, int scale, bool isNegative) {
    return {magnitude, magnitude == 0 ? std::min(scale, 0) : scale, isNegative && magnitude != 0};
}

/// Rounds until the number has at most `places` decimal places and 96 bits; nothing if it cannot.
std::optional<DecimalNumber>
Fit(WideNumber magnitude, int scale, bool isNegative, CutOff cut, int places = kMostPlaces) {
    while (scale > places || (scale > 0 && !magnitude.Fits96Bits())) {
        cut.Push(static_cast<unsigned>(magnitude.Divide(10)));
        --scale;
        // Rounding up may bring back the bit that has just gone.
        if (scale <= places && magnitude.Fits96Bits()) {
            if (cut.RoundsUp((magnitude.Low() & 1) != 0)) {
                magnitude.Add(WideNumber(1));
                cut = {};
            }
        }
    }
    if (!magnitude.Fits96Bits()) {
        return std::nullopt;
    }
    return Made(magnitude.Low(), scale, isNegative);
}

DecimalNumber FitOrRaise(const WideNumber& magnitude, int scale, bool isNegative) {
    const std::optional<DecimalNumber> result = Fit(magnitude, scale, isNegative, {});
    if (!result) {
        RaiseError(runtimeerror::kOverflow);
    }
    return *result;
}

/// The magnitude with that many decimal places, which are at least its own.
WideNumber Scaled(const DecimalNumber& number, int scale) {
    WideNumber result(number.Magnitude);
    result.MultiplyByTenTo(scale - number.Scale);
    return result;
}

/// Cuts zeros after the point.
DecimalNumber WithoutTrailingZeros(DecimalNumber number) {
    while (number.Scale > 0 && number.Magnitude % 10 == 0) {
        number.Magnitude /= 10;
        --number.Scale;
    }
    return number;
}

DecimalNumber FromScientific(double number, int digits) {
    std::array<char, 40> buffer{};
    const auto written = std::to_chars(
        buffer.data(),
        buffer.data() + buffer.size(),
        std::fabs(number),
        std::chars_format::scientific,
        digits - 1);
    const std::string_view text(
        buffer.data(), static_cast<std::size_t>(written.ptr - buffer.data()));
    const std::size_t mark = text.find('e');
    int exponent = 0;
    const std::size_t sign = text[mark + 1] == '+' ? 2 : 1;
    std::from_chars(text.data() + mark + sign, text.data() + text.size(), exponent);
    const auto result = FromDigits(text.substr(0, mark), exponent, number < 0);
    if (!result) {
        RaiseError(runtimeerror::kOverflow);
    }
    return WithoutTrailingZeros(*result);
}

}  // namespace

DecimalNumber Add(const DecimalNumber& left, const DecimalNumber& right) {
    const int scale = std::max(left.Scale, right.Scale);
    WideNumber first = Scaled(left, scale);
    WideNumber second = Scaled(right, scale);
    if (left.IsNegative == right.IsNegative) {
        first.Add(second);
        return FitOrRaise(first, scale, left.IsNegative);
    }
    if (first >= second) {
        first.Subtract(second);
        return FitOrRaise(first, scale, left.IsNegative);
    }
    second.Subtract(first);
    return FitOrRaise(second, scale, right.IsNegative);
}

DecimalNumber Subtract(const DecimalNumber& left, const DecimalNumber& right) {
    return Add(left, Negate(right));
}

DecimalNumber Multiply(const DecimalNumber& left, const DecimalNumber& right) {
    return FitOrRaise(
        WideNumber::Product(left.Magnitude, right.Magnitude),
        left.Scale + right.Scale,
        left.IsNegative != right.IsNegative);
}

DecimalNumber Divide(const DecimalNumber& left, const DecimalNumber& right) {
    const bool isNegative = left.IsNegative != right.IsNegative;
    const UnsignedWide divisor = right.Magnitude;
    UnsignedWide quotient = left.Magnitude / divisor;
    UnsignedWide remainder = left.Magnitude % divisor;
    int scale = left.Scale - right.Scale;
    // Digit by digit, as long as the result has room or has not reached its own decimal point.
    while (scale < 0 || (remainder != 0 && scale < kMostPlaces)) {
        const UnsignedWide grown = quotient * 10 + remainder * 10 / divisor;
        if (grown >= kBeyond) {
            break;
        }
        quotient = grown;
        remainder = remainder * 10 % divisor;
        ++scale;
    }
    if (scale < 0) {
        RaiseError(runtimeerror::kOverflow);
    }
    const UnsignedWide twice = remainder * 2;
    const bool roundsUp = twice > divisor || (twice == divisor && (quotient & 1) != 0);
    return FitOrRaise(WideNumber(quotient + (roundsUp ? 1 : 0)), scale, isNegative);
}

DecimalNumber Negate(const DecimalNumber& number) {
    return Made(number.Magnitude, number.Scale, !number.IsNegative);
}

std::strong_ordering Compare(const DecimalNumber& left, const DecimalNumber& right) {
    if (left.IsNegative != right.IsNegative) {
        return left.IsNegative ? std::strong_ordering::less : std::strong_ordering::greater;
    }
    const int scale = std::max(left.Scale, right.Scale);
    const WideNumber first = Scaled(left, scale);
    const WideNumber second = Scaled(right, scale);
    return left.IsNegative ? second <=> first : first <=> second;
}

DecimalNumber Round(const DecimalNumber& number, int places) {
    // Rounding up a number of 96 bits after it lost a digit always fits.
    return *Fit(WideNumber(number.Magnitude), number.Scale, number.IsNegative, {}, places);
}

DecimalNumber Truncate(const DecimalNumber& number) {
    WideNumber magnitude(number.Magnitude);
    for (int scale = number.Scale; scale > 0; --scale) {
        magnitude.Divide(10);
    }
    return Made(magnitude.Low(), 0, number.IsNegative);
}

DecimalNumber FromWhole(std::int64_t number) {
    const bool isNegative = number < 0;
    const auto magnitude = static_cast<std::uint64_t>(number);
    return {isNegative ? ~magnitude + 1 : magnitude, 0, isNegative};
}

DecimalNumber FromCurrency(std::int64_t tenThousandths) {
    DecimalNumber result = FromWhole(tenThousandths);
    result.Scale = kCurrencyPlaces;
    return WithoutTrailingZeros(result);
}

DecimalNumber FromDouble(double number) {
    return FromScientific(number, std::numeric_limits<double>::digits10);
}

DecimalNumber FromSingle(float number) {
    return FromScientific(static_cast<double>(number), std::numeric_limits<float>::digits10 + 1);
}

std::optional<DecimalNumber> FromDigits(std::string_view digits, int exponent, bool isNegative) {
    constexpr UnsignedWide kRoomForOneMore = ~UnsignedWide{0} / 10 - 1;
    UnsignedWide magnitude = 0;
    CutOff cut;
    bool isCutting = false;
    int scale = -exponent;
    bool isBehindPoint = false;
    for (const char character : digits) {
        if (character == '.') {
            isBehindPoint = true;
            continue;
        }
        const auto digit = static_cast<unsigned>(character - '0');
        isCutting = isCutting || magnitude > kRoomForOneMore;
        if (!isCutting) {
            magnitude = magnitude * 10 + digit;
        } else {
            cut.HasMore = cut.HasMore || digit != 0;  // other digits are cut before these
        }
        scale += (isBehindPoint ? 1 : 0) - (isCutting ? 1 : 0);
    }
    if (magnitude == 0 || scale > kMostPlaces + kMostDigitsRead) {
        return DecimalNumber{};
    }
    for (; scale < 0; ++scale) {
        if (magnitude >= kBeyond) {
            return std::nullopt;
        }
        magnitude *= 10;
    }
    return Fit(WideNumber(magnitude), scale, isNegative, cut);
}

double ToDouble(const DecimalNumber& number) {
    NumberBuffer buffer;
    const std::string_view text = TextOfDecimal(number, buffer);
    double result = 0;
    std::from_chars(text.data(), text.data() + text.size(), result);
    return result;
}

std::int64_t ToWhole(const DecimalNumber& number) {
    const DecimalNumber rounded = Round(number, 0);
    constexpr UnsignedWide kMost = std::numeric_limits<std::int64_t>::max();
    if (rounded.Magnitude > kMost + (rounded.IsNegative ? 1 : 0)) {
        RaiseError(runtimeerror::kOverflow);
    }
    const auto magnitude = static_cast<std::uint64_t>(rounded.Magnitude);
    return static_cast<std::int64_t>(rounded.IsNegative ? ~magnitude + 1 : magnitude);
}

std::int64_t ToCurrency(const DecimalNumber& number) {
    DecimalNumber rounded = Round(number, kCurrencyPlaces);
    for (; rounded.Scale < kCurrencyPlaces && rounded.Magnitude < kBeyond; ++rounded.Scale) {
        rounded.Magnitude *= 10;
    }
    rounded.Scale = 0;
    return rounded.Magnitude < kBeyond ? ToWhole(rounded)
                                       : (RaiseError(runtimeerror::kOverflow), 0);
}

}  // namespace dorvik::basic::modDecimal
