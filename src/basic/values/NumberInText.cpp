#include "basic/values/NumberInText.h"

#include "base/modText.h"
#include "basic/values/RuntimeErrors.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <limits>
#include <system_error>

namespace dorvik::basic {

namespace {

constexpr int kLargestExponent = 100'000;  // beyond all types

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

int RadixDigit(char character) {
    if (IsDigit(character)) {
        return character - '0';
    }
    const char upper = static_cast<char>(character & ~0x20);
    return upper >= 'A' && upper <= 'F' ? upper - 'A' + 10 : 16;
}

bool TakeSign(std::string_view& text, bool& isNegative) {
    if (text.empty() || (text.front() != '-' && text.front() != '+')) {
        return false;
    }
    isNegative = text.front() == '-';
    text.remove_prefix(1);
    return true;
}

bool TakeDollar(std::string_view& text) {
    if (!text.starts_with('$')) {
        return false;
    }
    text.remove_prefix(1);
    return true;
}

/// `&H12`, `&o17`, `&17`; nothing if the text begins otherwise or continues with something else.
std::optional<std::int32_t> RadixNumber(std::string_view text) {
    if (text.size() < 2 || text.front() != '&') {
        return std::nullopt;
    }
    const char letter = static_cast<char>(text[1] & ~0x20);
    if (letter == 'H') {
        return ReadRadixDigits(text.substr(2), 4);
    }
    return ReadRadixDigits(text.substr(letter == 'O' ? 2 : 1), 3);
}

/// Decimal digits with a point and an exponent and nothing else, as most texts are. Nothing for all others.
std::optional<double> PlainNumber(std::string_view text) {
    const std::string_view unsignedPart = text.substr(text.starts_with('-') ? 1 : 0);
    if (unsignedPart.empty() || !IsDigit(unsignedPart.front())) {
        return std::nullopt;  // "inf" and "nan" among others
    }
    double number = 0;
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end ? std::optional(number) : std::nullopt;
}

}  // namespace

std::optional<std::int32_t> ReadRadixDigits(std::string_view digits, int bitsPerDigit) {
    const bool isLong = digits.ends_with('&');
    digits.remove_suffix(isLong ? 1 : 0);
    std::uint64_t number = 0;
    for (const char character : digits) {
        const int digit = RadixDigit(character);
        if (digit >= 1 << bitsPerDigit) {
            return std::nullopt;
        }
        number = number << bitsPerDigit | static_cast<std::uint64_t>(digit);
        if (number > std::numeric_limits<std::uint32_t>::max()) {
            return std::nullopt;
        }
    }
    if (digits.empty()) {
        return std::nullopt;
    }
    const bool isShort = !isLong && number <= std::numeric_limits<std::uint16_t>::max();
    return isShort ? static_cast<std::int16_t>(number) : static_cast<std::int32_t>(number);
}

std::optional<NumberInText> NumberInText::Read(std::string_view text) {
    text = modText::Trim(text);
    NumberInText result;
    if (const std::optional<std::int32_t> radix = RadixNumber(text)) {
        result.m_isNegative = *radix < 0;
        result.m_digits = std::to_string(std::abs(std::int64_t{*radix}));
        return result;
    }
    const bool isInParentheses = text.size() > 2 && text.front() == '(' && text.back() == ')';
    if (isInParentheses) {
        text = text.substr(1, text.size() - 2);
    }
    bool hasSign = TakeSign(text, result.m_isNegative);
    if (TakeDollar(text) && !hasSign) {
        hasSign = TakeSign(text, result.m_isNegative);
    }
    if ((isInParentheses && hasSign) || !result.ReadDigits(text) || !result.ReadExponent(text)) {
        return std::nullopt;
    }
    result.m_isNegative = result.m_isNegative || isInParentheses;
    return result;
}

bool NumberInText::ReadDigits(std::string_view& text) {
    bool hasDigit = false;
    bool hasPoint = false;
    std::size_t i = 0;
    for (; i < text.size(); ++i) {
        const char character = text[i];
        if (IsDigit(character)) {
            hasDigit = true;
            m_digits += character;
        } else if (character == '.' && !hasPoint) {
            hasPoint = true;
            m_digits += character;
        } else if (character != ',' || hasPoint) {
            break;
        }
    }
    text.remove_prefix(i);
    return hasDigit;
}

bool NumberInText::ReadExponent(std::string_view text) {
    if (text.empty()) {
        return true;
    }
    const char letter = static_cast<char>(text.front() & ~0x20);
    text.remove_prefix(1);
    bool isNegative = false;
    TakeSign(text, isNegative);
    if ((letter != 'E' && letter != 'D') || text.empty() ||
        !std::all_of(text.begin(), text.end(), IsDigit)) {
        return false;
    }
    for (const char digit : text) {
        m_exponent = std::min(m_exponent * 10 + (digit - '0'), kLargestExponent);
    }
    m_exponent = isNegative ? -m_exponent : m_exponent;
    return true;
}

std::optional<double> NumberInText::DoubleIfInRange() const {
    std::string text = m_digits;
    text += 'E';
    text += std::to_string(m_exponent);
    double number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    if (result.ec == std::errc::result_out_of_range) {
        // Too large, or so small that it is zero: the digits in front of the point tell.
        const std::size_t first = m_digits.find_first_not_of("0.");
        const std::size_t point = std::min(m_digits.find('.'), m_digits.size());
        const auto power = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
        if (m_exponent + power > 0) {
            return std::nullopt;
        }
        number = 0;
    }
    return m_isNegative ? -number : number;
}

double NumberInText::ToDouble() const {
    const std::optional<double> number = DoubleIfInRange();
    if (!number) {
        RaiseError(runtimeerror::kOverflow);
    }
    return *number;
}

DecimalNumber NumberInText::ToDecimal() const {
    const auto number = modDecimal::FromDigits(m_digits, m_exponent, m_isNegative);
    if (!number) {
        RaiseError(runtimeerror::kOverflow);
    }
    return *number;
}

std::int64_t NumberInText::ToCurrency() const {
    return modDecimal::ToCurrency(ToDecimal());
}

double DoubleOfText(std::string_view text) {
    if (const std::optional<double> plain = PlainNumber(text)) {
        return *plain;
    }
    const std::optional<NumberInText> number = NumberInText::Read(text);
    if (!number) {
        RaiseError(runtimeerror::kTypeMismatch);
    }
    return number->ToDouble();
}

bool IsNumericText(std::string_view text) {
    if (PlainNumber(text)) {
        return true;
    }
    const std::optional<NumberInText> number = NumberInText::Read(text);
    return number && number->DoubleIfInRange();
}

}  // namespace dorvik::basic
