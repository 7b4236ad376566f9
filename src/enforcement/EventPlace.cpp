#include "enforcement/EventPlace.h"

#include "rulebase/model/IRule.h"

namespace dorvik {

ViolationOrigin EventPlace::OriginOf(const IRule& rule) const {
    return {Location, rule.RuleID(), rule.RuleType(), LocationMember};
}

}  // namespace dorvik
