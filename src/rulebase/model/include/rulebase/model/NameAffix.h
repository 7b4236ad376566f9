#pragma once

#include "foundation/lists/ObjectArrayList.h"
#include "rulebase/model/PrefixSuffixItem.h"

#include <cstdint>
#include <string>

namespace dorvik {

/// The prefix or the suffix of a naming convention: what a name must begin or end with where it is active. It has the
/// flag of its own writes; a changed item marks nothing.
class NameAffix {
public:
    /// They are filled from the front.
    static constexpr std::int32_t kItemCount = 4;

    NameAffix();
    NameAffix(const NameAffix&) = delete;
    /// Takes over the contents of the other's items, and marks this one.
    NameAffix& operator=(const NameAffix& other);

    bool Active() const { return m_active; }
    void SetActive(bool active);
    /// Always `kItemCount` items, in slot order.
    const ObjectArrayList<PrefixSuffixItem>& Items() const { return m_items; }
    ObjectArrayList<PrefixSuffixItem>& Items() { return m_items; }
    const std::string& Advice() const { return m_advice; }
    void SetAdvice(std::string advice);

    /// The own flag or that of the list. A write sets both.
    bool Dirty() const { return m_dirty || m_items.Dirty(); }
    void SetDirty(bool dirty);

private:
    ObjectArrayList<PrefixSuffixItem> m_items;
    std::string m_advice;
    bool m_active = false;
    bool m_dirty = false;
};

}  // namespace dorvik
