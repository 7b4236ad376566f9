#pragma once

#include <cmath>

/// Widths of columns as parts of the width of their table.
namespace dorvik::modFractions {

/// Rounded down, so that parts of a whole are never wider than it; but for what a fraction loses that was made of
/// pixels.
inline int Pixels(double fraction, int width) {
    constexpr double kRoundingError = 1e-6;
    return static_cast<int>(std::floor(fraction * width + kRoundingError));
}

}  // namespace dorvik::modFractions
