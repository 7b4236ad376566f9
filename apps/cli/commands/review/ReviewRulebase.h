#pragma once

#include <string>

namespace dorvik {

class ReviewCriteria;
class RuleEngine;

/// The rulebase of a `dorvik review`: what is said of one that cannot be used, or not as a whole. It is what
/// `dorvik rulebase check` says of the same file. The paths are in the program's form.
namespace modReviewRulebase {

/// False if no review is to begin with this file, and why has been reported: it is not a rulebase, or parts of it
/// cannot be read, so that rules and tolerances would be missing in silence. With `acceptFaults` such parts are
/// only reported.
bool CanBeUsed(const std::string& path, bool acceptFaults);

/// Takes the tolerances from the rulebase of the criteria. False if it cannot be read, which is reported.
bool LoadTolerances(ReviewCriteria& criteria);

/// Says why a review that was to begin with this rulebase did not: nothing else can be the reason.
void ReportUnusable(const std::string& path, const RuleEngine& ruleEngine);

}  // namespace modReviewRulebase

}  // namespace dorvik
