#pragma once

#include "cli/commands/results/ResultsFilter.h"
#include "cli/commands/results/ResultsRecords.h"
#include "cli/output/ExitCode.h"

#include <string>

namespace dorvik {

/// `dorvik results DATABASE files` and `procedures [FILE]`: the figures of each, violations counted
/// through the filter.
struct ResultsHotspotsOptions {
    ResultsFilterOptions Filter;
    std::string File;              // of the procedures alone; empty: of all files
    std::string SortKey = "name";  // one of HotspotList::SortKeys
    bool Descending = false;
    ResultsForm Form;
};

ExitCode RunResultsFiles(const std::string& database, const ResultsHotspotsOptions& options);
ExitCode RunResultsProcedures(const std::string& database, const ResultsHotspotsOptions& options);

}  // namespace dorvik
