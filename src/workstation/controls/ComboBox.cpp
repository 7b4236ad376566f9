#include "workstation/controls/ComboBox.h"

#include "modKeySearch.h"

#include <utility>

namespace dorvik {

void ComboBox::Clear() {
    Fill({});
}

void ComboBox::Add(ComboItem item) {
    m_items.push_back(std::move(item));
    Changed.Raise(ComboChange::Items);
}

void ComboBox::Fill(std::vector<ComboItem> items) {
    m_items = std::move(items);
    m_selected.reset();
    Changed.Raise(ComboChange::Items);
}

void ComboBox::SetText(std::size_t index, std::string text) {
    m_items.at(index).Text = std::move(text);
    Changed.Raise(ComboChange::ItemText);
}

std::optional<std::size_t> ComboBox::Find(std::string_view key) const {
    return modKeySearch::Find(m_items, key, &ComboItem::Key);
}

const ComboItem* ComboBox::SelectedItem() const {
    return m_selected ? &m_items[*m_selected] : nullptr;
}

void ComboBox::Select(std::optional<std::size_t> index) {
    m_selected = index && *index < m_items.size() ? index : std::nullopt;
    Changed.Raise(ComboChange::Selection);
}

void ComboBox::Choose(std::size_t index) {
    Select(index);
    if (m_selected) {
        Clicked.Raise();
    }
}

}  // namespace dorvik
