#pragma once

#include <cstdint>

namespace dorvik {

/// Where the environment puts a command bar, in its own numbers and pixels.
struct BarPlace {
    std::int32_t Position = 0;  // the edge of the window
    std::int32_t RowIndex = 0;
    std::int32_t Top = 0;
    std::int32_t Left = 0;
    bool Visible = true;

    friend constexpr bool operator==(const BarPlace&, const BarPlace&) = default;
};

}  // namespace dorvik
