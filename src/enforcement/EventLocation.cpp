#include "enforcement/EventLocation.h"

#include "rulebase/model/IRule.h"

namespace dorvik {

ViolationOrigin EventLocation::OriginOf(const IRule& rule) const {
    return {Location, rule.RuleID(), rule.RuleType(), LocationMember};
}

}  // namespace dorvik
