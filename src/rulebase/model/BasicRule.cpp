#include "rulebase/model/BasicRule.h"

#include "rulebase/model/HeldRuleNumbers.h"

#include <utility>

namespace dorvik {

std::string RuleKeyOf(std::int32_t ruleID) {
    return std::to_string(ruleID) + "Key";
}

void BasicRule::SetRuleID(std::int32_t ruleID) {
    if (const auto numbers = m_heldNumbers.lock()) {
        numbers->Remove(m_ruleID);
        numbers->Add(ruleID);
    }
    m_ruleID = ruleID;
    MarkDirty();
}

void BasicRule::SetHeldNumbers(const std::shared_ptr<HeldRuleNumbers>& numbers) {
    m_heldNumbers = numbers;
}

void BasicRule::SetCondition(std::string condition) {
    m_condition = std::move(condition);
    MarkDirty();
}

bool BasicRule::Dirty() const {
    return m_dirty || m_violationDefinition.Dirty();
}

void BasicRule::SetDirty(bool dirty) {
    m_dirty = dirty;
    m_violationDefinition.SetDirty(dirty);
}

void BasicRule::SetViolationDefinition(dorvik::ViolationDefinition definition) {
    m_violationDefinition = std::move(definition);
}

void BasicRule::SetTitle(std::string title) {
    m_title = std::move(title);
    MarkDirty();
}

void BasicRule::SetRuleActive(bool active) {
    m_ruleActive = active;
    MarkDirty();
}

void BasicRule::SetDescription(std::string description) {
    m_description = std::move(description);
    MarkDirty();
}

void BasicRule::SetCategoryID(std::int32_t categoryID) {
    m_violationDefinition.SetCategoryID(categoryID);
    MarkDirty();
}

void BasicRule::CopyCommonFields(const BasicRule& other) {
    SetCategoryID(other.CategoryID());
    SetCondition(other.m_condition);
    SetDescription(other.m_description);
    SetTitle("Clone of " + other.m_title);
    SetRuleActive(other.m_ruleActive);
    m_violationDefinition.CopyFrom(other.m_violationDefinition);
}

}  // namespace dorvik
