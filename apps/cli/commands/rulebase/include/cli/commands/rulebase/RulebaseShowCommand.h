#pragma once

#include "cli/output/ExitCode.h"

#include <string>

namespace dorvik {

/// `dorvik rulebase show FILE`: what the rulebase is, at a glance.
struct RulebaseShowOptions {
    std::string File;
};

ExitCode RunRulebaseShow(const RulebaseShowOptions& options);

}  // namespace dorvik
