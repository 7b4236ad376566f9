#pragma once

#include "cli/commands/results/ResultsRecords.h"
#include "cli/output/ExitCode.h"

#include <string>

namespace dorvik {

/// `dorvik results DATABASE summary`: what the review printed at its end.
ExitCode RunResultsSummary(const std::string& database, const ResultsForm& form);

}  // namespace dorvik
