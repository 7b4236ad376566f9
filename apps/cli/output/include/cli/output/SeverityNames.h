#pragma once

#include "cli/output/TablePrinter.h"
#include "source/Severity.h"

#include <cstdint>
#include <string>

namespace dorvik {

/// The severities where there is no rulebase to name them.
namespace modSeverityNames {

/// "critical" to "info".
std::string Word(Severity severity);
/// The same for a number from a results database; "unknown" for one that is no severity.
std::string Word(std::int32_t number);
Shade ShadeOf(std::int32_t number);

}  // namespace modSeverityNames

}  // namespace dorvik
