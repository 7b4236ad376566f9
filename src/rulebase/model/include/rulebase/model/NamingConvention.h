#pragma once

#include "rulebase/model/BasicRule.h"
#include "rulebase/model/NameAffix.h"

namespace dorvik {

/// Says how the name, or another property, of one kind of source object must look: a prefix, a
/// body with length limits and a pattern, and a suffix.
class NamingConvention final : public BasicRule {
public:
    dorvik::RuleType RuleType() const override { return ruleTypeNaming; }
    bool Dirty() const override;
    void SetDirty(bool dirty) override;
    /// Required: a naming convention never waits, so the writes of both are ignored.
    bool Triggered() const override { return false; }
    void SetTriggered(bool) override {}
    bool Cancelled() const override { return false; }
    void SetCancelled(bool) override {}
    bool PendingViolation() const override { return false; }
    /// Required: neither `ExclusionList` nor `CaseSensitive` is copied.
    std::shared_ptr<IRule> Clone() const override;

    /// Whether prefix, suffix and body patterns are matched with case.
    bool CaseSensitive() const { return m_caseSensitive; }
    void SetCaseSensitive(bool caseSensitive);
    /// Number of the object in the catalogue; decides at which events the rule runs.
    std::int32_t ObjectType() const { return m_objectType; }
    void SetObjectType(std::int32_t objectType);
    /// Stored and saved only.
    std::int32_t PropertyType() const { return m_propertyType; }
    void SetPropertyType(std::int32_t propertyType);
    /// The property whose value is tested, usually the name.
    const std::string& PropertyName() const { return m_propertyName; }
    void SetPropertyName(std::string name);
    /// Exempt values, separated by ";".
    const std::string& ExclusionList() const { return m_exclusionList; }
    void SetExclusionList(std::string list);

    const NameAffix& Prefix() const { return m_prefix; }
    NameAffix& Prefix() { return m_prefix; }
    const NameAffix& Suffix() const { return m_suffix; }
    NameAffix& Suffix() { return m_suffix; }

    bool BodyActive() const { return m_bodyActive; }
    void SetBodyActive(bool active);
    const std::string& BodyPattern() const { return m_bodyPattern; }
    void SetBodyPattern(std::string pattern);
    /// In characters; below 1 is not a limit, as for the minimum.
    std::int16_t MaxBodyLength() const { return m_maxBodyLength; }
    void SetMaxBodyLength(std::int16_t length);
    std::int16_t MinBodyLength() const { return m_minBodyLength; }
    void SetMinBodyLength(std::int16_t length);
    const std::string& BodyAdvice() const { return m_bodyAdvice; }
    void SetBodyAdvice(std::string advice);

private:
    void CopyPatternFields(const NamingConvention& other);

    std::string m_propertyName;
    std::string m_exclusionList;
    std::string m_bodyPattern;
    std::string m_bodyAdvice;
    NameAffix m_prefix;
    NameAffix m_suffix;
    std::int32_t m_objectType = 0;
    std::int32_t m_propertyType = 0;
    std::int16_t m_maxBodyLength = 0;
    std::int16_t m_minBodyLength = 0;
    bool m_caseSensitive = true;
    bool m_bodyActive = false;
};

}  // namespace dorvik
