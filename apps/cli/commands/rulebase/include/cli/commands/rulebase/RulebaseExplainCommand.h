#pragma once

#include "cli/output/ExitCode.h"

#include <string>

namespace dorvik {

/// `dorvik rulebase explain FILE RULE`: everything about one rule, or about all rules of a title.
struct RulebaseExplainOptions {
    std::string File;
    std::string Rule;  // its number, its title, or a part of the title
    bool Json = false;
};

ExitCode RunRulebaseExplain(const RulebaseExplainOptions& options);

}  // namespace dorvik
