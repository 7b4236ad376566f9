#pragma once

#include "cli/output/ExitCode.h"

#include <string>

namespace dorvik {

/// `dorvik rulebase document FILE --to HTML`: the rulebase as a page for people.
struct RulebaseDocumentOptions {
    std::string File;
    std::string Target;
};

ExitCode RunRulebaseDocument(const RulebaseDocumentOptions& options);

}  // namespace dorvik
