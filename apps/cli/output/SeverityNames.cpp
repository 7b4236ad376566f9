#include "cli/output/SeverityNames.h"

#include <array>
#include <string_view>

namespace dorvik::modSeverityNames {

namespace {

struct LevelRow {
    std::string_view Word;
    dorvik::Shade Shade;
};

constexpr std::array<LevelRow, kLevels> kRows = {{
    {"critical", Shade::Bad},
    {"high", Shade::Bad},
    {"medium", Shade::Caution},
    {"low", Shade::Plain},
    {"info", Shade::Dim},
}};

bool IsKnown(std::int32_t level) {
    return level >= 1 && level <= kLevels;
}

}  // namespace

std::string Word(std::int32_t level) {
    return IsKnown(level) ? std::string(kRows.at(static_cast<std::size_t>(level - 1)).Word)
                          : "unknown";
}

Shade ShadeOf(std::int32_t level) {
    return IsKnown(level) ? kRows.at(static_cast<std::size_t>(level - 1)).Shade : Shade::Plain;
}

}  // namespace dorvik::modSeverityNames
