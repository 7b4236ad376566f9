#include "rulebase/model/UnauthorisedKeyword.h"

#include "foundation/log/Trap.h"

namespace dorvik {

std::shared_ptr<IRule> UnauthorisedKeyword::Clone() const {
    std::shared_ptr<IRule> result;
    Trap({"UnauthorisedKeyword", "IRule_Clone"}, [&] {
        const auto clone = std::make_shared<UnauthorisedKeyword>();
        clone->CopyCommonFields(*this);
        clone->CopyEvents(*this);
        result = clone;
    });
    return result;
}

}  // namespace dorvik
