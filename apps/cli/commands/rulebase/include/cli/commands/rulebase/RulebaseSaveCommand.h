#pragma once

#include "cli/output/ExitCode.h"

#include <string>

namespace dorvik {

/// `dorvik rulebase save FILE --to OTHER`: reads the rulebase as for an edit and writes it, which
/// brings it to the current form of the file.
struct RulebaseSaveOptions {
    std::string File;
    std::string Target;
};

/// `Incomplete` if something in the file could not be read and is therefore not in the other.
ExitCode RunRulebaseSave(const RulebaseSaveOptions& options);

}  // namespace dorvik
