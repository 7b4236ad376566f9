#include "rulebase/CategoryItem.h"

#include "rulebase/CategoryList.h"

namespace dorvik {

void CategoryItem::SetID(std::int32_t id) {
    m_id = id;
    m_key = CategoryList::CategoryIDToKey(id);
}

}  // namespace dorvik
