#pragma once

#include "cli/commands/results/ResultsRecords.h"
#include "cli/output/ExitCode.h"

#include <string>

namespace dorvik {

/// `dorvik results DATABASE criteria`: with what, by whom, when and for what the project was reviewed.
ExitCode RunResultsCriteria(const std::string& database, const ResultsForm& form);

}  // namespace dorvik
