#pragma once

#include "cli/commands/results/ResultsFilter.h"
#include "cli/commands/results/ResultsRecords.h"
#include "cli/output/ExitCode.h"

#include <string>

namespace dorvik {

/// `dorvik results DATABASE violations`: the violations that fit all filters.
struct ResultsViolationsOptions {
    ResultsFilterOptions Filter;
    std::string File;       // empty: of all files
    std::string Procedure;  // empty: of all procedures
    bool IncludeCompleted = false;
    std::string SortKey = "severity";  // one of ListedViolations::SortKeys
    bool Descending = false;
    bool Long = false;  // all texts of each, instead of a table
    ResultsForm Form;
};

ExitCode RunResultsViolations(const std::string& database, const ResultsViolationsOptions& options);

}  // namespace dorvik
