#include "basic/values/DecimalDigits.h"

#include "basic/values/ValueBodies.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace dorvik::basic {

namespace {

constexpr int kDigitsOfSingle = 7;
constexpr int kDigitsOfDouble = 15;
constexpr int kPlacesOfCurrency = 4;

std::string DigitsOf(UnsignedWide magnitude) {
    std::string digits;
    for (; magnitude != 0; magnitude /= 10) {
        digits += static_cast<char>('0' + static_cast<int>(magnitude % 10));
    }
    std::reverse(digits.begin(), digits.end());
    return digits;
}

template <typename Number>
std::string Scientific(Number number, int digits) {
    char buffer[64];
    const auto result = std::to_chars(
        buffer, buffer + sizeof buffer, number, std::chars_format::scientific, digits - 1);
    return {buffer, result.ptr};
}

template <typename Number>
std::string ShortestScientific(Number number) {
    char buffer[64];
    const auto result =
        std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::scientific);
    return {buffer, result.ptr};
}

}  // namespace

DecimalDigits DecimalDigits::Of(const Value& number) {
    switch (number.Type()) {
        case ValueType::Single:
            return FromText(basic::Scientific(number.AsSingle(), kDigitsOfSingle));
        case ValueType::Double:
        case ValueType::Date:
            return FromText(basic::Scientific(number.AsDouble(), kDigitsOfDouble));
        case ValueType::Currency: {
            const bool isNegative = number.AsCurrency() < 0;
            const auto bits = static_cast<std::uint64_t>(number.AsCurrency());
            return FromInteger(
                isNegative, DigitsOf(isNegative ? 0 - bits : bits), kPlacesOfCurrency);
        }
        case ValueType::Decimal: {
            const DecimalBody& body = *number.AsDecimal();
            return FromInteger(body.IsNegative(), DigitsOf(body.Magnitude()), body.Scale());
        }
        case ValueType::Integer:
        case ValueType::Long:
        case ValueType::Byte:
        case ValueType::Boolean: {
            const std::int64_t value = number.AsLong();
            return FromInteger(value < 0, DigitsOf(static_cast<UnsignedWide>(std::abs(value))), 0);
        }
        case ValueType::Empty:
        case ValueType::Null:
        case ValueType::String:
        case ValueType::Object:
        case ValueType::Error:
        case ValueType::Record:
        case ValueType::Array:
        case ValueType::Reference: break;
    }
    return {};
}

DecimalDigits DecimalDigits::Shortest(const Value& number) {
    if (number.Type() == ValueType::Single) {
        return FromText(ShortestScientific(number.AsSingle()));
    }
    if (number.Type() == ValueType::Double || number.Type() == ValueType::Date) {
        return FromText(ShortestScientific(number.AsDouble()));
    }
    return Of(number);
}

DecimalDigits DecimalDigits::FromText(std::string_view scientific) {
    DecimalDigits number;
    number.m_isNegative = scientific.starts_with('-');
    scientific.remove_prefix(number.m_isNegative ? 1 : 0);
    const std::size_t mark = scientific.find('e');
    for (const char character : scientific.substr(0, mark)) {
        if (character != '.') {
            number.m_digits += character;
        }
    }
    std::string_view exponent = scientific.substr(mark + 1);
    exponent.remove_prefix(exponent.starts_with('+') ? 1 : 0);
    std::from_chars(exponent.data(), exponent.data() + exponent.size(), number.m_point);
    ++number.m_point;  // one digit is before the point
    number.Normalise();
    return number;
}

DecimalDigits DecimalDigits::FromInteger(bool isNegative, std::string digits, int scale) {
    DecimalDigits number;
    number.m_isNegative = isNegative;
    number.m_point = static_cast<int>(digits.size()) - scale;
    number.m_digits = std::move(digits);
    number.Normalise();
    return number;
}

void DecimalDigits::Normalise() {
    const std::size_t zeros = std::min(m_digits.find_first_not_of('0'), m_digits.size());
    m_digits.erase(0, zeros);
    m_point -= static_cast<int>(zeros);
    m_digits.erase(m_digits.find_last_not_of('0') + 1);
    if (m_digits.empty()) {
        m_point = 0;
    }
}

int DecimalDigits::FractionDigits() const {
    return std::max(static_cast<int>(m_digits.size()) - m_point, 0);
}

char DecimalDigits::DigitAt(int power) const {
    const int index = m_point - 1 - power;
    const bool isInside = index >= 0 && index < static_cast<int>(m_digits.size());
    return isInside ? m_digits[static_cast<std::size_t>(index)] : '0';
}

void DecimalDigits::MultiplyByPowerOfTen(int power) {
    if (!IsZero()) {
        m_point += power;
    }
}

bool DecimalDigits::RoundsUp(std::size_t kept, HalfRounding half) const {
    const char first = m_digits[kept];
    if (first != '5' || half == HalfRounding::AwayFromZero) {
        return first >= '5';
    }
    const bool isHalf = kept + 1 == m_digits.size();
    const bool isOdd = kept > 0 && (m_digits[kept - 1] - '0') % 2 != 0;
    return !isHalf || isOdd;
}

void DecimalDigits::Round(int places, HalfRounding half) {
    constexpr int kMostPlaces = 1000;  // beyond all types
    const int kept = m_point + std::min(places, kMostPlaces);
    if (kept >= static_cast<int>(m_digits.size())) {
        return;
    }
    if (kept < 0) {
        m_digits.clear();
        m_point = 0;
        return;
    }
    auto end = static_cast<std::size_t>(kept);
    const bool roundsUp = RoundsUp(end, half);
    m_digits.resize(end);
    if (roundsUp) {
        while (end > 0 && m_digits[end - 1] == '9') {
            m_digits[--end] = '0';
        }
        if (end > 0) {
            ++m_digits[end - 1];
        } else {
            m_digits.insert(0, 1, '1');
            ++m_point;
        }
    }
    Normalise();
}

std::string DecimalDigits::Scientific() const {
    return (m_isNegative ? "-0." : "0.") + m_digits + "0e" + std::to_string(m_point);
}

Value DecimalDigits::AsTypeOf(const Value& model) const {
    const std::string text = Scientific();
    if (model.Type() == ValueType::Single) {
        float single = 0;
        std::from_chars(text.data(), text.data() + text.size(), single);
        return Value::Single(single);
    }
    double number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return model.Type() == ValueType::Date ? Value::Date(number) : Value::Double(number);
}

}  // namespace dorvik::basic
