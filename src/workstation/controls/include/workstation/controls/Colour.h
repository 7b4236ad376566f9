#pragma once

#include <cstdint>

namespace dorvik {

/// The colour of a text; `Automatic` is that of the screen's own texts.
struct Colour {
    std::uint8_t Red = 0;
    std::uint8_t Green = 0;
    std::uint8_t Blue = 0;
    bool Automatic = true;

    friend constexpr bool operator==(const Colour&, const Colour&) = default;
};

constexpr Colour Rgb(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
    return {red, green, blue, false};
}

}  // namespace dorvik
