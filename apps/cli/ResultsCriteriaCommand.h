#pragma once

#include "cli/ExitCode.h"
#include "cli/ResultsRecords.h"

#include <string>

namespace dorvik {

/// `dorvik results DATABASE criteria`: with what, by whom, when and for what the project was reviewed.
ExitCode RunResultsCriteria(const std::string& database, const ResultsForm& form);

}  // namespace dorvik
