#pragma once

#include <cstdint>
#include <string>

namespace dorvik {

/// What is raised when a rule is broken. `Description` and `Advice` are templates whose %tags% are
/// filled in when a violation is raised. Every write but that of `ViolationDescription` sets `Dirty`.
class ViolationDefinition {
public:
    const std::string& Title() const { return m_title; }
    void SetTitle(std::string title);

    /// Prompt text for the editor; only the default violations have one, and no file holds it.
    const std::string& ViolationDescription() const { return m_violationDescription; }
    /// Required: does not set `Dirty`.
    void SetViolationDescription(std::string description);

    const std::string& Description() const { return m_description; }
    void SetDescription(std::string description);

    /// Points that a violation adds to the impact totals.
    std::int16_t Impact() const { return m_impact; }
    void SetImpact(std::int16_t impact);

    /// Level 1 (critical) to 5 (information); 0 until set.
    std::int32_t Severity() const { return m_severity; }
    void SetSeverity(std::int32_t severity);

    const std::string& Advice() const { return m_advice; }
    void SetAdvice(std::string advice);

    bool Dirty() const { return m_dirty; }
    void SetDirty(bool dirty) { m_dirty = dirty; }

    /// `ID` of a `CategoryItem`; -1 is not a category.
    std::int32_t CategoryID() const { return m_categoryID; }
    void SetCategoryID(std::int32_t categoryID);

    /// Copies the seven stored fields through the write properties, so that this one is `Dirty`.
    void CopyFrom(const ViolationDefinition& other);

private:
    std::string m_title;
    std::string m_violationDescription;
    std::string m_description;
    std::string m_advice;
    std::int32_t m_severity = 0;
    std::int32_t m_categoryID = -1;
    std::int16_t m_impact = 0;
    bool m_dirty = false;
};

}  // namespace dorvik
