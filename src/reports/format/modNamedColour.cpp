#include "reports/format/modNamedColour.h"

#include <array>
#include <cstddef>

namespace dorvik::modNamedColour {

namespace {

/// By number from 1.
constexpr std::array<NamedColour, 16> kColours{{
    {"Black", 0x00, 0x00, 0x00},
    {"Blue", 0x00, 0x00, 0xff},
    {"Aqua", 0x00, 0xff, 0xff},
    {"Navy", 0x00, 0x00, 0x80},
    {"Teal", 0x00, 0x80, 0x80},
    {"Green", 0x00, 0x80, 0x00},
    {"Gray", 0x80, 0x80, 0x80},
    {"Purple", 0x80, 0x00, 0x80},
    {"Maroon", 0x80, 0x00, 0x00},
    {"Olive", 0x80, 0x80, 0x00},
    {"Lime", 0x00, 0xff, 0x00},
    {"Silver", 0xc0, 0xc0, 0xc0},
    {"Magenta", 0xff, 0x00, 0xff},
    {"Red", 0xff, 0x00, 0x00},
    {"White", 0xff, 0xff, 0xff},
    {"Yellow", 0xff, 0xff, 0x00},
}};

}  // namespace

const NamedColour* ByNumber(std::int32_t number) {
    const bool isKnown = number >= 1 && static_cast<std::size_t>(number) <= kColours.size();
    return isKnown ? &kColours[static_cast<std::size_t>(number) - 1] : nullptr;
}

}  // namespace dorvik::modNamedColour
