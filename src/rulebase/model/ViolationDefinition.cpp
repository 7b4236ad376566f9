#include "rulebase/model/ViolationDefinition.h"

#include <utility>

namespace dorvik {

void ViolationDefinition::SetTitle(std::string title) {
    m_title = std::move(title);
    m_dirty = true;
}

void ViolationDefinition::SetViolationDescription(std::string description) {
    m_violationDescription = std::move(description);
}

void ViolationDefinition::SetDescription(std::string description) {
    m_description = std::move(description);
    m_dirty = true;
}

void ViolationDefinition::SetImpact(std::int16_t impact) {
    m_impact = impact;
    m_dirty = true;
}

void ViolationDefinition::SetSeverity(std::int32_t severity) {
    m_severity = severity;
    m_dirty = true;
}

void ViolationDefinition::SetAdvice(std::string advice) {
    m_advice = std::move(advice);
    m_dirty = true;
}

void ViolationDefinition::SetCategoryID(std::int32_t categoryID) {
    m_categoryID = categoryID;
    m_dirty = true;
}

void ViolationDefinition::CopyFrom(const ViolationDefinition& other) {
    SetAdvice(other.m_advice);
    SetCategoryID(other.m_categoryID);
    SetDescription(other.m_description);
    SetImpact(other.m_impact);
    SetSeverity(other.m_severity);
    SetTitle(other.m_title);
    SetViolationDescription(other.m_violationDescription);
}

}  // namespace dorvik
