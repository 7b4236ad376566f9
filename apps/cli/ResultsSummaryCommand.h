#pragma once

#include "cli/ExitCode.h"
#include "cli/ResultsRecords.h"

#include <string>

namespace dorvik {

/// `dorvik results DATABASE summary`: what the review printed at its end.
ExitCode RunResultsSummary(const std::string& database, const ResultsForm& form);

}  // namespace dorvik
