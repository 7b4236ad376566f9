#pragma once

#include "cli/output/JsonOutput.h"
#include "rulebase/model/Rulebase.h"

namespace dorvik {

/// One rule as a JSON object, with everything that the file says of it.
void WriteRuleAsJson(JsonOutput& json, const IRule& rule, const Rulebase& rulebase);

}  // namespace dorvik
