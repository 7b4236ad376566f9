#pragma once

#include "source/Severity.h"

#include <array>
#include <string_view>

/// The columns of the table `ViolationStats` that hold the figures of a severity.
namespace dorvik::modSeverityColumns {

struct Columns {
    std::string_view Count;
    std::string_view Impact;
};

/// In the order of `kSeverities`.
inline constexpr std::array<Columns, kSeverities.size()> kColumns{{
    {"CriticalCount", "CriticalImpact"},
    {"HighCount", "HighImpact"},
    {"MediumCount", "MediumImpact"},
    {"LowCount", "LowImpact"},
    {"InformationCount", "InformationImpact"},
}};
static_assert(kColumns[IndexOf(Severity::Critical)].Count == "CriticalCount");
static_assert(kColumns[IndexOf(Severity::Information)].Count == "InformationCount");

constexpr std::string_view Count(Severity severity) {
    return kColumns[IndexOf(severity)].Count;
}
constexpr std::string_view Impact(Severity severity) {
    return kColumns[IndexOf(severity)].Impact;
}

}  // namespace dorvik::modSeverityColumns
