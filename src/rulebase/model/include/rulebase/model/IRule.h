#pragma once

#include "rulebase/model/RuleType.h"
#include "rulebase/model/ViolationDefinition.h"

#include <cstdint>
#include <memory>
#include <string>

namespace dorvik {

class HeldRuleNumbers;

/// A rule as the review and the rule lists see it. Rules are plain data: others evaluate them.
/// A rule is shared by all the lists that hold it and lives as long as they do.
class IRule {
public:
    virtual ~IRule() = default;

    /// Unique within the rulebase; 0 until one is given.
    virtual std::int32_t RuleID() const = 0;
    virtual void SetRuleID(std::int32_t ruleID) = 0;
    /// For the rule lists only: where a change of the number is to be reported; null for nowhere.
    virtual void SetHeldNumbers(const std::shared_ptr<HeldRuleNumbers>& numbers) = 0;
    virtual dorvik::RuleType RuleType() const = 0;
    /// Script text, or the regular expression of an unauthorised keyword.
    virtual const std::string& Condition() const = 0;
    /// The rule's own flag or that of its violation definition (and item lists). A write sets all.
    virtual bool Dirty() const = 0;
    virtual void SetDirty(bool dirty) = 0;
    /// State of a running review, as is `Cancelled`: never stored, never makes the rule dirty.
    virtual bool Triggered() const = 0;
    virtual void SetTriggered(bool triggered) = 0;
    virtual bool Cancelled() const = 0;
    virtual void SetCancelled(bool cancelled) = 0;
    virtual const dorvik::ViolationDefinition& ViolationDefinition() const = 0;
    virtual dorvik::ViolationDefinition& ViolationDefinition() = 0;
    virtual const std::string& Title() const = 0;
    virtual bool RuleActive() const = 0;
    virtual void SetRuleActive(bool active) = 0;
    virtual const std::string& Description() const = 0;
    /// The decimal `RuleID` followed by "Key"; the key of the rule in every keyed list.
    virtual std::string RuleKey() const = 0;
    /// A new rule of the same class with `RuleID` 0, titled "Clone of ..."; null if that failed.
    virtual std::shared_ptr<IRule> Clone() const = 0;
    virtual bool PendingViolation() const = 0;
};

/// The key under which rule lists hold a rule: 12 gives "12Key".
std::string RuleKeyOf(std::int32_t ruleID);

}  // namespace dorvik
