#pragma once

#include "parser/ParserEvent.h"
#include "rulebase/model/RuleType.h"
#include "source/Location.h"

#include <cstdint>
#include <string_view>

namespace dorvik {

class IRule;

/// The location and the rule for which a violation is raised.
struct ViolationOrigin {
    dorvik::Location Location;
    std::int32_t RuleID;  // 0 for the violations that belong to no rule
    dorvik::RuleType RuleType;
    std::string_view LocationMember;
};

/// An event and the location of the parser at it, as violations report it.
struct EventLocation {
    ParserEvent Event;
    dorvik::Location Location;
    /// The display name of the location: "(Project)", "(Layout)", a procedure name ... Valid during the event.
    std::string_view LocationMember;

    /// The origin of a violation of the rule at this location.
    ViolationOrigin OriginOf(const IRule& rule) const;
};

}  // namespace dorvik
