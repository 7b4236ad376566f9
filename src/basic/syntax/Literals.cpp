#include "Literals.h"

#include "basic/values/DateText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace dorvik::basic {

namespace {

constexpr std::int32_t kLargestInteger = 32'767;
constexpr std::int32_t kLargestLong = 2'147'483'647;
constexpr int kMoneyPlaces = 4;

struct SuffixRow {
    char Suffix;
    std::string_view TypeName;
};
constexpr SuffixRow kSuffixes[] = {
    {'%', "an Integer"},
    {'&', "a Long"},
    {'!', "a Single"},
    {'#', "a Double"},
    {'@', "a Currency"},
};

/// Why a number as written has no value; a hexadecimal one needs no more said.
std::string ProblemOf(std::string_view written, char suffix) {
    constexpr std::size_t kMostShown = 40;
    std::string problem = "'" + std::string(written.substr(0, kMostShown)) + "'";
    for (const SuffixRow& row : kSuffixes) {
        if (row.Suffix == suffix && written[0] != '&') {
            problem.append(" is out of the range of ").append(row.TypeName);
        }
    }
    return problem;
}

/// The digits as written, with `E` for the exponent. Nothing beyond the range; too small is 0.
std::optional<double> ReadDouble(std::string_view digits) {
    std::string text(digits);
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == 'd' || c == 'D'; }, 'e');
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc::result_out_of_range) {
        return value;
    }
    const std::size_t exponent = text.find_first_of("eE");
    const bool isSmall = exponent == std::string::npos
                             ? text.find_first_not_of("0") == text.find('.')
                             : text[exponent + 1] == '-';
    return isSmall ? std::optional(0.0) : std::nullopt;
}

bool IsWhole(std::string_view digits) {
    return digits.find_first_not_of("0123456789") == std::string_view::npos;
}

/// Ten-thousandths, the digit after the fourth is rounded half to even.
std::optional<std::int64_t> ReadMoney(std::string_view digits) {
    constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
    if (digits.find_first_of("eEdD") != std::string_view::npos) {
        const auto value = ReadDouble(digits);
        if (!value || *value * 10'000 >= static_cast<double>(kMost)) {
            return std::nullopt;
        }
        return static_cast<std::int64_t>(std::nearbyint(*value * 10'000));
    }
    const std::size_t point = std::min(digits.find('.'), digits.size());
    std::string places(digits.substr(std::min(point + 1, digits.size())));
    const std::string rest = places.size() > kMoneyPlaces ? places.substr(kMoneyPlaces) : "";
    places.resize(kMoneyPlaces, '0');
    std::string scaled(digits.substr(0, point));
    scaled += places;
    std::int64_t value = 0;
    const auto result = std::from_chars(scaled.data(), scaled.data() + scaled.size(), value);
    if (result.ec != std::errc()) {
        return std::nullopt;
    }
    const bool isHalf =
        !rest.empty() && rest[0] == '5' && rest.find_first_not_of('0', 1) == std::string::npos;
    const bool roundsUp = isHalf ? value % 2 != 0 : !rest.empty() && rest[0] >= '5';
    if (roundsUp && value == kMost) {
        return std::nullopt;
    }
    return value + (roundsUp ? 1 : 0);
}

std::optional<Value> RadixLiteral(std::string_view text, char suffix) {
    const bool isHex = (text[1] | 0x20) == 'h';
    const std::size_t first = text[1] >= '0' && text[1] <= '9' ? 1 : 2;
    const std::string_view digits = text.substr(first);
    std::uint32_t bits = 0;
    const auto result =
        std::from_chars(digits.data(), digits.data() + digits.size(), bits, isHex ? 16 : 8);
    if (result.ec != std::errc() || result.ptr != digits.data() + digits.size()) {
        return std::nullopt;
    }
    const bool isLong = bits > 0xFFFF || suffix == '&';
    if ((suffix != 0 && suffix != '&' && suffix != '%') || (isLong && suffix == '%')) {
        return std::nullopt;
    }
    return isLong ? Value::Long(static_cast<std::int32_t>(bits))
                  : Value::Integer(static_cast<std::int16_t>(bits));
}

std::optional<Value> WholeLiteral(std::string_view digits, double number, std::int32_t largest) {
    if (!IsWhole(digits) || number > largest) {
        return std::nullopt;
    }
    const auto whole = static_cast<std::int32_t>(number);
    return largest == kLargestInteger ? Value::Integer(static_cast<std::int16_t>(whole))
                                      : Value::Long(whole);
}

std::optional<Value> TypedLiteral(std::string_view digits, char suffix) {
    if (suffix == '@') {
        const auto money = ReadMoney(digits);
        return money ? std::optional(Value::Currency(*money)) : std::nullopt;
    }
    const auto number = ReadDouble(digits);
    if (!number) {
        return std::nullopt;
    }
    if (suffix == '#') {
        return Value::Double(*number);
    }
    if (suffix != '!') {
        return WholeLiteral(digits, *number, suffix == '%' ? kLargestInteger : kLargestLong);
    }
    if (*number > std::numeric_limits<float>::max()) {
        return std::nullopt;
    }
    return Value::Single(static_cast<float>(*number));
}

std::optional<Value> PlainLiteral(std::string_view digits) {
    const auto number = ReadDouble(digits);
    if (!number) {
        return std::nullopt;
    }
    if (auto integer = WholeLiteral(digits, *number, kLargestInteger)) {
        return integer;
    }
    auto whole = WholeLiteral(digits, *number, kLargestLong);
    return whole ? whole : Value::Double(*number);
}

}  // namespace

std::optional<Value> NumberLiteral(std::string_view text, char suffix, std::string& problem) {
    const std::string_view bare = suffix ? text.substr(0, text.size() - 1) : text;
    std::optional<Value> value = text[0] == '&' ? RadixLiteral(bare, suffix)
                                 : suffix       ? TypedLiteral(bare, suffix)
                                                : PlainLiteral(bare);
    if (!value) {
        problem = ProblemOf(text, suffix ? suffix : '#');
    }
    return value;
}

Value StringLiteral(std::string_view text) {
    std::string_view inner = text.substr(1);
    // The last quote closes the text unless it is the second of a pair.
    const std::size_t last = inner.find_last_not_of('"');
    const std::size_t quotes = inner.size() - (last == std::string_view::npos ? 0 : last + 1);
    if (quotes % 2 != 0) {
        inner.remove_suffix(1);
    }
    if (inner.find('"') == std::string_view::npos) {
        return Value::Text(inner);
    }
    std::string plain;
    plain.reserve(inner.size());
    for (std::size_t i = 0; i < inner.size(); ++i) {
        plain += inner[i];
        if (inner[i] == '"') {
            ++i;
        }
    }
    return Value::Text(std::move(plain));
}

std::optional<Value> DateLiteral(std::string_view text) {
    const auto days = ReadDate(text);
    return days ? std::optional(Value::Date(*days)) : std::nullopt;
}

}  // namespace dorvik::basic
