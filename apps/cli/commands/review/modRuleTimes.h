#pragma once

namespace dorvik {

class RuleEngine;

/// What the scripts of a review cost.
namespace modRuleTimes {

/// Prints the scripts that took the most time, the most expensive one first, and their share of the
/// time of all scripts.
void Print(const RuleEngine& ruleEngine);

}  // namespace modRuleTimes

}  // namespace dorvik
