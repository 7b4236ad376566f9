#include "workstation/controls/CheckList.h"

#include "modKeySearch.h"

#include <algorithm>
#include <utility>

namespace dorvik {

void CheckList::Fill(std::vector<CheckItem> items) {
    m_items = std::move(items);
    Changed.Raise(std::nullopt);
}

void CheckList::SetChecked(std::size_t index, bool checked) {
    m_items.at(index).Checked = checked;
    Changed.Raise(index);
}

void CheckList::SetAll(bool checked) {
    for (CheckItem& item : m_items) {
        item.Checked = checked;
    }
    Changed.Raise(std::nullopt);
}

bool CheckList::AnyChecked() const {
    return std::any_of(
        m_items.begin(), m_items.end(), [](const CheckItem& item) { return item.Checked; });
}

std::optional<std::size_t> CheckList::Find(std::string_view key) const {
    return modKeySearch::Find(m_items, key, &CheckItem::Key);
}

}  // namespace dorvik
