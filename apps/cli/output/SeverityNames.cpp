#include "cli/output/SeverityNames.h"

#include <array>
#include <string_view>

namespace dorvik::modSeverityNames {

namespace {

struct LevelRow {
    std::string_view Word;
    dorvik::Shade Shade;
};

/// In the order of `kSeverities`.
constexpr std::array<LevelRow, kSeverities.size()> kRows = {{
    {"critical", Shade::Bad},
    {"high", Shade::Bad},
    {"medium", Shade::Caution},
    {"low", Shade::Plain},
    {"info", Shade::Dim},
}};

}  // namespace

std::string Word(Severity severity) {
    return std::string(kRows.at(IndexOf(severity)).Word);
}

std::string Word(std::int32_t number) {
    const std::optional<Severity> severity = SeverityOf(number);
    return severity ? Word(*severity) : "unknown";
}

Shade ShadeOf(std::int32_t number) {
    const std::optional<Severity> severity = SeverityOf(number);
    return severity ? kRows.at(IndexOf(*severity)).Shade : Shade::Plain;
}

}  // namespace dorvik::modSeverityNames
