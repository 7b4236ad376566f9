#include "rulebase/model/CategoryItem.h"

#include "rulebase/model/CategoryList.h"

namespace dorvik {

void CategoryItem::SetID(std::int32_t id) {
    m_id = id;
    m_key = CategoryList::CategoryIDToKey(id);
}

}  // namespace dorvik
