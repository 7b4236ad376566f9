#include "rulebase/model/NamingConvention.h"

#include "foundation/log/Trap.h"

#include <utility>

namespace dorvik {

namespace {

void AddUnusedItems(ObjectArrayList<PrefixSuffixItem>& items) {
    for (std::int32_t slot = 1; slot <= NamingConvention::kItemCount; ++slot) {
        items.Add(std::make_shared<PrefixSuffixItem>());
    }
    items.SetDirty(false);
}

void CopyItems(
    const ObjectArrayList<PrefixSuffixItem>& from, ObjectArrayList<PrefixSuffixItem>& to) {
    for (std::int32_t slot = 1; slot <= NamingConvention::kItemCount; ++slot) {
        *to.Item(slot) = *from.Item(slot);
    }
}

}  // namespace

NamingConvention::NamingConvention() {
    AddUnusedItems(m_prefixItems);
    AddUnusedItems(m_suffixItems);
}

bool NamingConvention::Dirty() const {
    return BasicRule::Dirty() || m_prefixItems.Dirty() || m_suffixItems.Dirty();
}

void NamingConvention::SetDirty(bool dirty) {
    BasicRule::SetDirty(dirty);
    m_prefixItems.SetDirty(dirty);
    m_suffixItems.SetDirty(dirty);
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
    SetPrefixActive(other.m_prefixActive);
    CopyItems(other.m_prefixItems, m_prefixItems);
    SetPrefixAdvice(other.m_prefixAdvice);
    SetBodyActive(other.m_bodyActive);
    SetBodyPattern(other.m_bodyPattern);
    SetMaxBodyLength(other.m_maxBodyLength);
    SetMinBodyLength(other.m_minBodyLength);
    SetBodyAdvice(other.m_bodyAdvice);
    SetSuffixActive(other.m_suffixActive);
    CopyItems(other.m_suffixItems, m_suffixItems);
    SetSuffixAdvice(other.m_suffixAdvice);
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

void NamingConvention::SetPrefixActive(bool active) {
    m_prefixActive = active;
    MarkDirty();
}

void NamingConvention::SetPrefixAdvice(std::string advice) {
    m_prefixAdvice = std::move(advice);
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

void NamingConvention::SetSuffixActive(bool active) {
    m_suffixActive = active;
    MarkDirty();
}

void NamingConvention::SetSuffixAdvice(std::string advice) {
    m_suffixAdvice = std::move(advice);
    MarkDirty();
}

}  // namespace dorvik
