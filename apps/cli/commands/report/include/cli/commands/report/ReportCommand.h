#pragma once

#include "cli/output/ExitCode.h"

#include <string>
#include <vector>

namespace dorvik {

struct ReportCommandOptions {
    std::vector<std::string> Databases;
    std::string Folder;  // empty: beside each database
    bool Detailed = false;
    bool Modern = false;
    bool Quiet = false;
};

/// Writes the reports of finished reviews again from their results databases.
ExitCode RunReport(const ReportCommandOptions& options);

}  // namespace dorvik
