#include "rulebase/model/NameAffix.h"

#include <memory>
#include <utility>

namespace dorvik {

NameAffix::NameAffix() {
    for (std::int32_t slot = 1; slot <= kItemCount; ++slot) {
        m_items.Add(std::make_shared<PrefixSuffixItem>());
    }
    m_items.SetDirty(false);
}

NameAffix& NameAffix::operator=(const NameAffix& other) {
    if (this != &other) {
        for (std::int32_t slot = 1; slot <= kItemCount; ++slot) {
            *m_items.Item(slot) = *other.m_items.Item(slot);
        }
        m_active = other.m_active;
        m_advice = other.m_advice;
        m_dirty = true;
    }
    return *this;
}

void NameAffix::SetActive(bool active) {
    m_active = active;
    m_dirty = true;
}

void NameAffix::SetAdvice(std::string advice) {
    m_advice = std::move(advice);
    m_dirty = true;
}

void NameAffix::SetDirty(bool dirty) {
    m_dirty = dirty;
    m_items.SetDirty(dirty);
}

}  // namespace dorvik
