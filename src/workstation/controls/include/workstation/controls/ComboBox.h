#pragma once

#include "workstation/controls/Event.h"
#include "workstation/controls/Observable.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

struct ComboItem {
    std::string Key;
    std::string Tag;
    std::string Text;
    std::string Image;  // name of a picture, empty for none

    friend bool operator==(const ComboItem&, const ComboItem&) = default;
};

/// What a screen has to draw anew.
enum class ComboChange : std::int32_t { Items, ItemText, Selection };

/// A box of items with pictures, of which one or none is selected. Items are numbered from 0.
///
/// `Select` is what the program does and `Choose` what the user does: only the latter raises `Clicked`, also where
/// the item was selected already.
class ComboBox {
public:
    std::size_t Count() const { return m_items.size(); }
    const ComboItem& Item(std::size_t index) const { return m_items.at(index); }
    const std::vector<ComboItem>& Items() const { return m_items; }

    void Clear();
    void Add(ComboItem item);
    /// All items at once; the selection is lost.
    void Fill(std::vector<ComboItem> items);
    void SetText(std::size_t index, std::string text);

    /// By the key, without regard to case.
    std::optional<std::size_t> Find(std::string_view key) const;
    std::optional<std::size_t> SelectedIndex() const { return m_selected; }
    const ComboItem* SelectedItem() const;
    /// Nothing is selected without an index, or by one that is not there.
    void Select(std::optional<std::size_t> index);
    void Choose(std::size_t index);

    Observable<bool> Enabled{true};
    Event<ComboChange> Changed;
    Event<> Clicked;

private:
    std::vector<ComboItem> m_items;
    std::optional<std::size_t> m_selected;
};

}  // namespace dorvik
