#pragma once

#include "rulebase/model/Rulebase.h"

/// The rows with which a new rulebase begins. A failure is logged under module "Rulebase" and
/// leaves what has been built.
namespace dorvik::modRulebaseDefaults {

void DefaultControlTags(TagTable& table);
void DefaultDataTypeTags(TagTable& table);
void DefaultScopeTags(TagTable& table);
void DefaultSeverityList(SeverityTable& table);

}  // namespace dorvik::modRulebaseDefaults
