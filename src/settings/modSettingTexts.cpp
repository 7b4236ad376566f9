#include "modSettingTexts.h"

#include "base/BasicError.h"
#include "base/Variant.h"
#include "foundation/log/Trap.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace dorvik::modSettingTexts {

namespace {

constexpr std::size_t kLongestNumber = 400;  // characters, of a double written without an exponent

/// What the language's own conversion gives; nothing for a text that it refuses.
template <typename Conversion>
auto Converted(std::string_view text, Conversion conversion)
    -> std::optional<decltype((Variant().*conversion)())> {
    std::optional<decltype((Variant().*conversion)())> value;
    Handled([&] { value = (Variant(text).*conversion)(); }, [](const BasicError&) { return true; });
    return value;
}

}  // namespace

std::string Text(bool value) {
    return value ? "1" : "0";
}

std::string Text(std::int32_t value) {
    return std::to_string(value);
}

std::string Text(double value) {
    std::array<char, kLongestNumber> digits{};
    const auto written = std::to_chars(
        digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed);
    return {digits.data(), written.ptr};
}

std::optional<bool> ReadBoolean(std::string_view text) {
    return Converted(text, &Variant::AsBoolean);
}

std::optional<std::int16_t> ReadInteger(std::string_view text) {
    const std::optional<std::int32_t> number = ReadLong(text);
    const bool fits = number && *number >= std::numeric_limits<std::int16_t>::min() &&
                      *number <= std::numeric_limits<std::int16_t>::max();
    return fits ? std::optional(static_cast<std::int16_t>(*number)) : std::nullopt;
}

std::optional<std::int32_t> ReadLong(std::string_view text) {
    return Converted(text, &Variant::AsLong);
}

std::optional<double> ReadFraction(std::string_view text) {
    std::string number(text);
    std::replace(number.begin(), number.end(), ',', '.');
    double value = 0;
    const char* const end = number.data() + number.size();
    const auto read = std::from_chars(number.data(), end, value);
    const bool isWhole = !number.empty() && read.ec == std::errc() && read.ptr == end;
    return isWhole && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

}  // namespace dorvik::modSettingTexts
