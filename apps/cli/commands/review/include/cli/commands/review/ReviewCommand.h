#pragma once

#include "cli/commands/review/ReportOptions.h"
#include "cli/output/ExitCode.h"
#include "platform/host/modEncoding.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace dorvik {

struct ReviewOptions {
    std::vector<std::string> Paths;
    std::string RulebaseFile;   // empty: the sample rulebase
    std::string ResultsFolder;  // empty: beside each project
    ReportOptions Reports;
    std::vector<std::string> Conventions;  // empty: all kinds
    std::vector<std::int32_t> Severities;  // empty: all levels
    double ScriptSeconds = 5;              // a script that runs longer is stopped; 0: no limit
    /// A script that takes more is stopped; 0: no limit. Without: the engine's own, if seconds are limited.
    std::optional<std::int64_t> ScriptInstructions;
    std::vector<std::string> Tolerances;     // "CVC=0", "PC=none", over those of the rulebase
    std::vector<std::string> TypeLibraries;  // folders to look for type libraries in
    int CodePage = modEncoding::kDefaultCodePage;
    bool AcceptFaults = false;  // review also with a rulebase that cannot be read as a whole
    bool RuleTimes = false;     // tell which scripts took the most time
    bool ClearLog = false;
    bool KeepKnownFaults = false;  // see `ReviewCriteria::KeepsKnownFaults`
    bool Progress = false;
    bool Quiet = false;
};

/// Reviews all projects that the paths stand for, as one review, and prints what came out.
ExitCode RunReview(const ReviewOptions& options);

}  // namespace dorvik
