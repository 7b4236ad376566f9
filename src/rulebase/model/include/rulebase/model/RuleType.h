#pragma once

#include <cstdint>

namespace dorvik {

/// Kind of the rule that a violation breaks. The results database stores these numbers. No rule object
/// carries the first two: they mark the violations about authorised items.
enum class RuleType : std::int32_t {
    ruleTypeComponent = 1,
    ruleTypeReference = 2,
    ruleTypeKeyword = 3,
    ruleTypeCoding = 4,
    ruleTypeNaming = 5,
    ruleTypeDocumentation = 6,  // no rule is of this kind yet; a filter of results knows it
};
using enum RuleType;

}  // namespace dorvik
