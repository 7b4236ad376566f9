#pragma once

#include "base/DateTime.h"

#include <cstdint>
#include <string>

namespace dorvik {

/// What the database says of a review: with which rulebase, by whom and when it was done.
struct ReviewData {
    std::string RulebaseTitle;
    std::string RulebaseVersion;
    std::string Reviewer;  // logon name; empty if the system could not give it
    DateTime Start;
    DateTime End;  // zero if the review did not end
    std::int32_t ActiveRules = 0;
    std::int32_t RuleExecutions = 0;
};

}  // namespace dorvik
