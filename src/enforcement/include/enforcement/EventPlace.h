#pragma once

#include "enforcement/ResultsManager.h"
#include "parser/Location.h"
#include "parser/ParserEvent.h"
#include "rulebase/model/IRule.h"

#include <string_view>

namespace dorvik {

/// Where the parser stands at an event, as violations tell it.
struct EventPlace {
    ParserEvent Event;
    dorvik::Location Location;
    /// The display name of the place: "(Project)", "(Layout)", a procedure name ... Lives as long as the event.
    std::string_view LocationMember;

    /// Where a violation of the rule at this place comes from.
    ResultsManager::Origin OriginOf(const IRule& rule) const {
        return {Location, rule.RuleID(), rule.RuleType(), LocationMember};
    }
};

}  // namespace dorvik
