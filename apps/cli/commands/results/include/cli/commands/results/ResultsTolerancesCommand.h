#pragma once

#include "cli/commands/results/ResultsRecords.h"
#include "cli/output/ExitCode.h"

#include <string>

namespace dorvik {

/// `dorvik results DATABASE tolerances`: the tolerances of the review, and which files miss them. With a
/// file, all measures of that file.
struct ResultsTolerancesOptions {
    std::string File;
    ResultsForm Form;
};

ExitCode RunResultsTolerances(const std::string& database, const ResultsTolerancesOptions& options);

}  // namespace dorvik
