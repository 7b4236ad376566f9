#include "workstation/controls/CheckList.h"

#include "base/modTextCase.h"

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
    const auto found = std::find_if(m_items.begin(), m_items.end(), [key](const CheckItem& item) {
        return modTextCase::Equal(item.Key, key);
    });
    return found == m_items.end()
               ? std::nullopt
               : std::optional(static_cast<std::size_t>(found - m_items.begin()));
}

}  // namespace dorvik
