#pragma once

#include "workstation/controls/Colour.h"
#include "workstation/controls/Event.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

struct CheckItem {
    std::string Key;
    std::string Text;
    std::string Description = {};
    std::string Image = {};
    dorvik::Colour Colour = {};
    bool Checked = false;
};

/// A list with check marks. Items are numbered from 0. `Changed` has the number of the item, nothing where it is about
/// all of them.
class CheckList {
public:
    std::size_t Count() const { return m_items.size(); }
    const CheckItem& Item(std::size_t index) const { return m_items.at(index); }
    const std::vector<CheckItem>& Items() const { return m_items; }
    void Fill(std::vector<CheckItem> items);
    void SetChecked(std::size_t index, bool checked);
    void SetAll(bool checked);
    bool AnyChecked() const;
    /// By the key, without regard to case.
    std::optional<std::size_t> Find(std::string_view key) const;

    Event<std::optional<std::size_t>> Changed;

private:
    std::vector<CheckItem> m_items;
};

}  // namespace dorvik
