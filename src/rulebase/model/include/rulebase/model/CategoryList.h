#pragma once

#include "foundation/lists/ObjectKeyedArrayList.h"
#include "rulebase/model/CategoryItem.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace dorvik {

/// The categories of a rulebase, keyed by `CategoryIDToKey`. `CategoryListView` shows them to
/// generic code.
class CategoryList {
public:
    bool Dirty() const { return m_items.Dirty(); }
    void SetDirty(bool dirty) { m_items.SetDirty(dirty); }
    std::int32_t Count() const { return m_items.Count(); }
    auto begin() const { return m_items.begin(); }
    auto end() const { return m_items.end(); }
    /// Raise `kyErrNoSuchItem` for an unknown key or position.
    const std::shared_ptr<CategoryItem>& Item(std::int32_t index) const {
        return m_items.Item(index);
    }
    const std::shared_ptr<CategoryItem>& Item(std::string_view key) const {
        return m_items.Item(key);
    }
    bool Selected(std::int32_t index) const { return m_items.Selected(index); }
    bool Selected(std::string_view key) const { return m_items.Selected(key); }
    void SetSelected(std::int32_t index, bool selected) { m_items.SetSelected(index, selected); }
    std::int32_t SelectedCount() const { return m_items.SelectedCount(); }
    /// Required: always empty, whatever the index.
    std::string Key(std::int32_t index) const;

    /// Adds the item unselected under its key. With `newItem` it first gets `LastID` + 1 as its ID.
    /// Raises `kyErrKeyInUse` for a second item of one key.
    void Add(const std::shared_ptr<CategoryItem>& item, bool newItem);
    void Remove(std::int32_t index) { m_items.Remove(index); }
    void Remove(std::string_view key) { m_items.Remove(key); }
    bool Contains(std::string_view key) const { return m_items.Contains(key); }
    void Clear() { m_items.Clear(); }

    /// Last ID given out; 0 at first.
    std::int32_t LastID() const { return m_lastID; }
    /// For the rulebase loader only.
    void SetLastID(std::int32_t lastID) { m_lastID = lastID; }
    bool ContainsID(std::int32_t id) const;
    /// 7 gives "7K".
    static std::string CategoryIDToKey(std::int32_t id);
    /// Ascending by title without case; of equal titles the later one comes first. Keys go with
    /// their items, Selected flags stay at their positions.
    void Sort();

private:
    ObjectKeyedArrayList<CategoryItem> m_items;
    std::int32_t m_lastID = 0;
};

}  // namespace dorvik
