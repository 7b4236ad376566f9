#include "ResultsNames.h"

#include "cli/output/SeverityNames.h"

namespace dorvik {

std::string ResultsNames::Severity(std::int32_t level) const {
    const auto* const item = m_lists.Severities.Find(SeverityKeyOf(level));
    return item == nullptr ? modSeverityNames::Word(level) : (*item)->Title();
}

std::string ResultsNames::Category(std::int32_t categoryId) const {
    constexpr std::int32_t kNoCategory = -1;
    if (categoryId == kNoCategory) {
        return "none";
    }
    if (!m_lists.Categories.ContainsID(categoryId)) {
        return "unknown (" + std::to_string(categoryId) + ")";
    }
    return m_lists.Categories.Item(CategoryList::CategoryIDToKey(categoryId))->Title();
}

}  // namespace dorvik
