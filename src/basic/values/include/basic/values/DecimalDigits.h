#pragma once

#include "basic/values/Value.h"

#include <string>

namespace dorvik::basic {

enum class HalfRounding : std::uint8_t { AwayFromZero, ToEven };

/// A number as its decimal digits, for rounding and formatting as people see it: 2.675 is exactly
/// that here, whatever its binary form.
class DecimalDigits {
public:
    DecimalDigits() = default;  // 0

    /// The digits that the type holds: 15 of a Double or Date, 7 of a Single, all of the others; a Boolean
    /// is -1 or 0. REQUIRES: a number or a Decimal.
    static DecimalDigits Of(const Value& number);
    /// The shortest digits that stand for the same Single, Double or Date.
    static DecimalDigits Shortest(const Value& number);

    bool IsZero() const { return m_digits.empty(); }
    bool IsNegative() const { return m_isNegative; }
    /// Digits before and after the point, without outer zeros.
    int IntegerDigits() const { return m_point > 0 ? m_point : 0; }
    int FractionDigits() const;
    /// Digits before the point; negative for zeros after it. REQUIRES: !IsZero().
    int Magnitude() const { return m_point; }
    /// The digit for 10 to the power of `power`.
    char DigitAt(int power) const;

    void MultiplyByPowerOfTen(int power);
    /// Rounds to a number of places after the point.
    void Round(int places, HalfRounding half);
    /// As a number of the same type. REQUIRES: `model` is a Single, Double or Date.
    Value AsTypeOf(const Value& model) const;

private:
    static DecimalDigits FromText(std::string_view scientific);
    static DecimalDigits FromInteger(bool isNegative, std::string digits, int scale);
    void Normalise();
    bool RoundsUp(std::size_t kept, HalfRounding half) const;
    std::string Scientific() const;

    bool m_isNegative = false;
    std::string m_digits;  // no zeros at the ends; empty for 0
    int m_point = 0;       // the value is 0.digits times 10 to the power of this
};

}  // namespace dorvik::basic
