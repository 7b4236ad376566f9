#pragma once

#include "cli/output/ExitCode.h"

#include <cstdint>
#include <string>
#include <vector>

namespace dorvik {

/// `dorvik rulebase list FILE`: the rules, those that fit all filters. An empty filter fits all.
struct RulebaseListOptions {
    std::string File;
    std::vector<std::string> Kinds;  // "keyword", "coding", "naming"
    std::vector<std::int32_t> Severities;
    std::string Category;  // a title, an ID, or "none"
    std::string Event;     // a number or a name
    bool Json = false;
};

ExitCode RunRulebaseList(const RulebaseListOptions& options);

}  // namespace dorvik
