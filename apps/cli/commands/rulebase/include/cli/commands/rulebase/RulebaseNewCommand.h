#pragma once

#include "cli/output/ExitCode.h"

#include <string>

namespace dorvik {

/// `dorvik rulebase new FILE`: a rulebase without rules, complete with the default tags and scales.
struct RulebaseNewOptions {
    std::string File;
    std::string Title;  // that of a new rulebase if empty
    bool Force = false;
};

ExitCode RunRulebaseNew(const RulebaseNewOptions& options);

}  // namespace dorvik
