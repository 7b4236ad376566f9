#pragma once

#include "cli/ExitCode.h"
#include "platform/modEncoding.h"

#include <cstdint>
#include <string>
#include <vector>

namespace dorvik {

struct ReviewOptions {
    std::vector<std::string> Paths;
    std::string RulebaseFile;              // empty: the sample rulebase
    std::string ResultsFolder;             // empty: beside each project
    std::vector<std::string> Conventions;  // empty: all kinds
    std::vector<std::int32_t> Severities;  // empty: all levels
    double ScriptSeconds = 5;              // a script that runs longer is stopped; 0: no limit
    std::vector<std::string> Tolerances;   // "CVC=0", "PC=none", over those of the rulebase
    int CodePage = modEncoding::kDefaultCodePage;
    bool ClearLog = false;
    bool Progress = false;
    bool Quiet = false;
};

/// Reviews all projects that the paths stand for, as one review, and prints what came out.
ExitCode RunReview(const ReviewOptions& options);

}  // namespace dorvik
