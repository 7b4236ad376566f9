#pragma once

#include "foundation/lists/IListItem.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace dorvik {

/// Any keyed list of list items, as list editors and the rulebase file see it. Positions, keys and
/// errors are those of `KeyedList`.
class IKeyedList {
public:
    virtual ~IKeyedList() = default;

    virtual std::int32_t Count() const = 0;
    virtual std::shared_ptr<IListItem> Item(std::int32_t index) const = 0;
    virtual std::shared_ptr<IListItem> Item(std::string_view key) const = 0;
    /// Adds the item, not selected, under its own key; a new item is given a new key first. Raises
    /// `kyErrKeyInUse` if the key is there already.
    virtual void Add(const std::shared_ptr<IListItem>& item, bool newItem) = 0;
    virtual void Remove(std::int32_t index) = 0;
    virtual void Remove(std::string_view key) = 0;
    virtual bool Contains(std::string_view key) const = 0;
    virtual bool Selected(std::int32_t index) const = 0;
    virtual bool Selected(std::string_view key) const = 0;
    virtual std::int32_t SelectedCount() const = 0;
    virtual void Clear() = 0;
    virtual std::string Key(std::int32_t index) const = 0;
};

}  // namespace dorvik
