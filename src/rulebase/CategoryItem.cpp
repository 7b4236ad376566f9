#include "rulebase/CategoryItem.h"

#include "rulebase/CategoryList.h"

namespace dorvik {

void CategoryItem::SetID(std::int32_t id) {
    m_id = id;
    m_key = CategoryList::CategoryIDToKey(id);
}

ObjectArrayList<IRule>& CategoryItem::CategoryRules() {
    if (m_categoryRules == nullptr) {
        m_categoryRules = std::make_unique<ObjectArrayList<IRule>>();
    }
    return *m_categoryRules;
}

}  // namespace dorvik
