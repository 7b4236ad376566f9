#pragma once

#include "basic/values/DecimalNumber.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace dorvik::basic {

/// A text that says a number: blanks around it, a sign, digits with "," anywhere before the point, an
/// exponent after E or D; `&H` and `&O`; `$` in front; `(1)` for -1.
class NumberInText {
public:
    /// Nothing if the text is not a number.
    static std::optional<NumberInText> Read(std::string_view text);

    double ToDouble() const;  // 6
    /// Nothing if a Double cannot hold it.
    std::optional<double> DoubleIfInRange() const;
    DecimalNumber ToDecimal() const;  // exact; 6
    std::int64_t ToCurrency() const;  // ten thousandths; exact, half to even at the fourth place; 6

private:
    bool ReadDigits(std::string_view& text);
    bool ReadExponent(std::string_view text);

    std::string m_digits;  // with "." if there is one
    int m_exponent = 0;
    bool m_isNegative = false;
};

/// The text as a Double; raises 13 if it is not a number, 6 if it is too large.
double DoubleOfText(std::string_view text);
/// Whether `DoubleOfText` takes it.
bool IsNumericText(std::string_view text);
/// The digits after `&H` or `&O` up to the end of the text as a number, an `&` after them making it a
/// Long: up to FFFF it has 16 bits, up to FFFFFFFF 32. Nothing for other characters or more bits.
std::optional<std::int32_t> ReadRadixDigits(std::string_view digits, int bitsPerDigit);

}  // namespace dorvik::basic
