#include "rulebase/model/TableItem.h"

#include <utility>

namespace dorvik {

void TableItem::SetTableKey(std::string key) {
    m_tableKey = std::move(key);
}

void TableItem::SetTableTitle(std::string title) {
    m_dirty = m_dirty || title != m_tableTitle;
    m_tableTitle = std::move(title);
}

void TableItem::SetTableText(std::string text) {
    m_dirty = m_dirty || text != m_tableText;
    m_tableText = std::move(text);
}

}  // namespace dorvik
