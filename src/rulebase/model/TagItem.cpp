#include "rulebase/model/TagItem.h"

#include <utility>

namespace dorvik {

void TagItem::SetTagName(std::string name) {
    m_tagName = std::move(name);
    m_dirty = true;
}

void TagItem::SetTagValue(std::string value) {
    m_tagValue = std::move(value);
    m_dirty = true;
}

void TagItem::SetTagDescription(std::string description) {
    m_tagDescription = std::move(description);
    m_dirty = true;
}

void TagItem::SetTagExample(std::string example) {
    m_tagExample = std::move(example);
    m_dirty = true;
}

}  // namespace dorvik
