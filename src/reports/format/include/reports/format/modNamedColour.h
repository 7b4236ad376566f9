#pragma once

#include <cstdint>
#include <string_view>

namespace dorvik {

/// A colour by its name in HTML, with its red, green and blue.
struct NamedColour {
    std::string_view Name;
    std::uint8_t Red = 0;
    std::uint8_t Green = 0;
    std::uint8_t Blue = 0;
};

/// The colours by which the severities of a rulebase are shown.
namespace modNamedColour {

/// Of the number that a severity has for its colour, 1 to 16; null for any other.
// Required: the number is an index, not red, green and blue in one number.
const NamedColour* ByNumber(std::int32_t number);

}  // namespace modNamedColour

}  // namespace dorvik
