#include "rulebase/model/NamingConvention.h"

#include "foundation/log/Trap.h"

#include <utility>

namespace dorvik {

bool NamingConvention::Dirty() const {
    return BasicRule::Dirty() || m_prefix.Dirty() || m_suffix.Dirty();
}

void NamingConvention::SetDirty(bool dirty) {
    BasicRule::SetDirty(dirty);
    m_prefix.SetDirty(dirty);
    m_suffix.SetDirty(dirty);
}

std::shared_ptr<IRule> NamingConvention::Clone() const {
    return Trapped({"NamingConvention", "IRule_Clone"}, nullptr, [&]() -> std::shared_ptr<IRule> {
        const auto clone = std::make_shared<NamingConvention>();
        clone->CopyCommonFields(*this);
        clone->CopyPatternFields(*this);
        return clone;
    });
}

void NamingConvention::CopyPatternFields(const NamingConvention& other) {
    SetObjectType(other.m_objectType);
    SetPropertyType(other.m_propertyType);
    SetPropertyName(other.m_propertyName);
    m_prefix = other.m_prefix;
    SetBodyActive(other.m_bodyActive);
    SetBodyPattern(other.m_bodyPattern);
    SetMaxBodyLength(other.m_maxBodyLength);
    SetMinBodyLength(other.m_minBodyLength);
    SetBodyAdvice(other.m_bodyAdvice);
    m_suffix = other.m_suffix;
}

void NamingConvention::SetCaseSensitive(bool caseSensitive) {
    m_caseSensitive = caseSensitive;
    MarkDirty();
}

void NamingConvention::SetObjectType(std::int32_t objectType) {
    m_objectType = objectType;
    MarkDirty();
}

void NamingConvention::SetPropertyType(std::int32_t propertyType) {
    m_propertyType = propertyType;
    MarkDirty();
}

void NamingConvention::SetPropertyName(std::string name) {
    m_propertyName = std::move(name);
    MarkDirty();
}

void NamingConvention::SetExclusionList(std::string list) {
    m_exclusionList = std::move(list);
    MarkDirty();
}

void NamingConvention::SetBodyActive(bool active) {
    m_bodyActive = active;
    MarkDirty();
}

void NamingConvention::SetBodyPattern(std::string pattern) {
    m_bodyPattern = std::move(pattern);
    MarkDirty();
}

void NamingConvention::SetMaxBodyLength(std::int16_t length) {
    m_maxBodyLength = length;
    MarkDirty();
}

void NamingConvention::SetMinBodyLength(std::int16_t length) {
    m_minBodyLength = length;
    MarkDirty();
}

void NamingConvention::SetBodyAdvice(std::string advice) {
    m_bodyAdvice = std::move(advice);
    MarkDirty();
}

}  // namespace dorvik
