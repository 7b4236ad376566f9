#pragma once

#include "foundation/lists/ObjectArrayList.h"
#include "rulebase/model/ViolationDefinition.h"

#include <cstdint>

namespace dorvik {

/// The violations that no rule raises, by their 1-based position.
enum class DefaultViolationType : std::int32_t {
    UnauthorisedComponent = 1,
    UnauthorisedComponentVersion = 2,
    UnauthorisedReference = 3,
    UnauthorisedReferenceVersion = 4,
    UnknownControl = 5,
};

/// Exactly five definitions, all there from the start.
class DefaultViolations {
public:
    DefaultViolations();

    std::int32_t Count() const { return m_items.Count(); }
    bool Dirty() const;
    void SetDirty(bool dirty);
    /// 1-based. Raises `kSubscriptOutOfRange` outside 1 to 5.
    ViolationDefinition& Item(std::int32_t index);
    const ViolationDefinition& Item(std::int32_t index) const;
    /// Null for a type outside 1 to 5.
    ViolationDefinition* ItemByType(std::int32_t type);
    const ViolationDefinition* ItemByType(std::int32_t type) const;

private:
    ObjectArrayList<ViolationDefinition> m_items;
};

}  // namespace dorvik
