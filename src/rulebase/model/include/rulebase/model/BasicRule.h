#pragma once

#include "rulebase/model/IRule.h"

namespace dorvik {

/// The fields that all three rule classes have. Every write but that of `Dirty` and of the
/// violation definition sets the rule's own flag.
class BasicRule : public IRule {
public:
    std::int32_t RuleID() const override { return m_ruleID; }
    void SetRuleID(std::int32_t ruleID) override;
    void SetHeldNumbers(const std::shared_ptr<HeldRuleNumbers>& numbers) override;
    const std::string& Condition() const override { return m_condition; }
    void SetCondition(std::string condition);
    bool Dirty() const override;
    void SetDirty(bool dirty) override;
    const dorvik::ViolationDefinition& ViolationDefinition() const override {
        return m_violationDefinition;
    }
    dorvik::ViolationDefinition& ViolationDefinition() override { return m_violationDefinition; }
    /// Replaces the definition; the rule's own flag stays.
    void SetViolationDefinition(dorvik::ViolationDefinition definition);
    const std::string& Title() const override { return m_title; }
    void SetTitle(std::string title);
    bool RuleActive() const override { return m_ruleActive; }
    void SetRuleActive(bool active) override;
    const std::string& Description() const override { return m_description; }
    void SetDescription(std::string description);
    std::string RuleKey() const override { return RuleKeyOf(m_ruleID); }

    /// The `CategoryID` of the violation definition; a write sets the rule's own flag as well.
    std::int32_t CategoryID() const { return m_violationDefinition.CategoryID(); }
    void SetCategoryID(std::int32_t categoryID);

protected:
    BasicRule() = default;
    BasicRule(const BasicRule&) = delete;  // a copy is a `Clone`, which no list holds
    BasicRule& operator=(const BasicRule&) = delete;

    void MarkDirty() { m_dirty = true; }
    /// The part of `Clone` that all rules share, through the write properties.
    void CopyCommonFields(const BasicRule& other);

private:
    std::string m_condition;
    std::string m_title;
    std::string m_description;
    dorvik::ViolationDefinition m_violationDefinition;
    std::weak_ptr<HeldRuleNumbers> m_heldNumbers;  // of the lists that hold the rule
    std::int32_t m_ruleID = 0;
    bool m_ruleActive = true;
    bool m_dirty = false;
};

}  // namespace dorvik
