#pragma once

#include "cli/output/ExitCode.h"

#include <string>
#include <vector>

namespace dorvik {

/// `dorvik rulebase check FILE...`: everything that would go wrong in a review, a line each. Silent
/// where nothing would.
struct RulebaseCheckOptions {
    std::vector<std::string> Files;
    bool Json = false;
};

/// `Failed` if anything was found.
ExitCode RunRulebaseCheck(const RulebaseCheckOptions& options);

}  // namespace dorvik
