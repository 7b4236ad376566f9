#include "rulebase/model/UnauthorisedKeyword.h"

#include "foundation/log/Trap.h"

namespace dorvik {

std::shared_ptr<IRule> UnauthorisedKeyword::Clone() const {
    return Trapped(
        {"UnauthorisedKeyword", "IRule_Clone"}, nullptr, [&]() -> std::shared_ptr<IRule> {
            const auto clone = std::make_shared<UnauthorisedKeyword>();
            clone->CopyCommonFields(*this);
            clone->CopyEvents(*this);
            return clone;
        });
}

}  // namespace dorvik
