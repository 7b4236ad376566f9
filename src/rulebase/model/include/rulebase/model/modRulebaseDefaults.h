#pragma once

#include "rulebase/model/Rulebase.h"

#include <span>
#include <string_view>

/// The rows with which a new rulebase begins. A failure is logged under module "Rulebase" and
/// leaves what has been built.
namespace dorvik::modRulebaseDefaults {

void DefaultControlTags(TagTable& table);
void DefaultDataTypeTags(TagTable& table);
void DefaultScopeTags(TagTable& table);
void DefaultSeverityList(SeverityTable& table);

/// The rows of the scope tags: a review looks up no others.
std::span<const std::string_view> ScopeTagNames();

}  // namespace dorvik::modRulebaseDefaults
