#pragma once

#include "cli/output/TablePrinter.h"

#include <cstdint>
#include <string>

namespace dorvik {

/// The five levels of severity, 1 critical to 5 information, where no rulebase is at hand to name them.
namespace modSeverityNames {

inline constexpr std::int32_t kLevels = 5;

/// "critical" to "info"; "unknown" for any other number.
std::string Word(std::int32_t level);
Shade ShadeOf(std::int32_t level);

}  // namespace modSeverityNames

}  // namespace dorvik
