#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace dorvik {

/// The forms of settings as texts: "1" and "0", decimal numbers, "0.488". Reading gives nothing for a text that is not
/// of the type, or out of its range.
namespace modSettingTexts {

std::string Text(bool value);
std::string Text(std::int32_t value);
std::string Text(double value);

/// Also "True" and "False" in any case, and any number, which is true unless it is 0.
std::optional<bool> ReadBoolean(std::string_view text);
std::optional<std::int16_t> ReadInteger(std::string_view text);
std::optional<std::int32_t> ReadLong(std::string_view text);
/// With "." or "," as the decimal point.
std::optional<double> ReadFraction(std::string_view text);

}  // namespace modSettingTexts

}  // namespace dorvik
