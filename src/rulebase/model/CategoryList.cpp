#include "rulebase/model/CategoryList.h"

#include "base/modTextCase.h"

#include <algorithm>
#include <vector>

namespace dorvik {

std::string CategoryList::Key(std::int32_t /*index*/) const {
    return {};
}

void CategoryList::Add(const std::shared_ptr<CategoryItem>& item, bool newItem) {
    if (newItem) {
        ++m_lastID;
        item->SetID(m_lastID);
    }
    m_items.Add(item->Key(), item, false, true);
}

bool CategoryList::ContainsID(std::int32_t id) const {
    return m_items.Contains(CategoryIDToKey(id));
}

std::string CategoryList::CategoryIDToKey(std::int32_t id) {
    return std::to_string(id) + "K";
}

void CategoryList::Sort() {
    std::vector<std::shared_ptr<CategoryItem>> sorted;
    for (const std::shared_ptr<CategoryItem>& item : m_items) {
        const auto isLess = [](const auto& left, const std::string& title) {
            return modTextCase::Compare(left->Title(), title) < 0;
        };
        // Required: of equal titles the one met later is first.
        const auto place = std::lower_bound(sorted.begin(), sorted.end(), item->Title(), isLess);
        sorted.insert(place, item);
    }
    for (std::int32_t index = 1; index <= Count(); ++index) {
        const std::shared_ptr<CategoryItem>& item = sorted[static_cast<std::size_t>(index - 1)];
        m_items.SetItem(index, item);
        m_items.SetKey(index, item->Key());
    }
}

}  // namespace dorvik
