#pragma once

#include "parser/Location.h"
#include "parser/ParserEvent.h"
#include "rulebase/model/RuleType.h"

#include <cstdint>
#include <string_view>

namespace dorvik {

class IRule;

/// Where and by which rule a violation is raised.
struct ViolationOrigin {
    Location Place;
    std::int32_t RuleID;  // 0 for the violations that belong to no rule
    dorvik::RuleType RuleType;
    std::string_view LocationMember;
};

/// Where the parser is at an event, as violations report it.
struct EventPlace {
    ParserEvent Event;
    dorvik::Location Location;
    /// The display name of the place: "(Project)", "(Layout)", a procedure name ... Lives as long as the event.
    std::string_view LocationMember;

    /// Where a violation of the rule at this place comes from.
    ViolationOrigin OriginOf(const IRule& rule) const;
};

}  // namespace dorvik
