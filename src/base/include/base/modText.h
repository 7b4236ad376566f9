#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Cutting, trimming and converting text the way the reviewed language does it.
/// Trimming removes blanks (U+0020) only, never tabs.
namespace dorvik::modText {

std::string_view TrimLeft(std::string_view text);
std::string_view TrimRight(std::string_view text);
std::string_view Trim(std::string_view text);

/// The parts between the separators; a text without one is one part, an empty text is one empty part.
std::vector<std::string_view> Split(std::string_view text, char separator);
std::string Join(const std::vector<std::string>& parts, std::string_view separator);

/// The leading number of the text, blanks ignored wherever they are, "." as the decimal point, with
/// an exponent after "E" or "D"; 0 where there is none. Raises `kOverflow` if a double cannot hold it.
double LeadingNumber(std::string_view text);
/// The whole text as a 32-bit decimal integer with an optional sign; nothing if it is anything else.
std::optional<std::int32_t> WholeNumber(std::string_view text);

/// Rounds half to even, as the reviewed language does. Raises `kOverflow` outside 32 bits.
std::int32_t RoundToLong(double value);

/// The leading number of the text, rounded: what the reviewed language has in a Long for a text.
std::int32_t LeadingLong(std::string_view text);

inline constexpr std::string_view kLineEnd = "\r\n";

}  // namespace dorvik::modText
