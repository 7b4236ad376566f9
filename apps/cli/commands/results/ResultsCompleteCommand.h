#pragma once

#include "cli/output/ExitCode.h"

#include <cstdint>
#include <string>
#include <vector>

namespace dorvik {

/// `dorvik results DATABASE complete ID...` and `reopen ID...`: marks violations as dealt with, or takes
/// the mark away. All IDs must be those of violations, or none is changed.
ExitCode RunResultsComplete(
    const std::string& database, const std::vector<std::string>& ids, bool completed);

}  // namespace dorvik
