#pragma once

#include "base/BasicError.h"
#include "foundation/lists/IKeyedList.h"
#include "rulebase/model/CategoryList.h"

#include <memory>
#include <string>
#include <string_view>

namespace dorvik {

/// A category list as an `IKeyedList`, for editors of lists. REQUIRES: the list outlives the view.
class CategoryListView final : public IKeyedList {
public:
    explicit CategoryListView(CategoryList& list) : m_list(list) {}

    std::int32_t Count() const override { return m_list.Count(); }
    std::shared_ptr<IListItem> Item(std::int32_t index) const override {
        return m_list.Item(index);
    }
    std::shared_ptr<IListItem> Item(std::string_view key) const override {
        return m_list.Item(key);
    }
    /// A new item gets its key with its ID. An item that is not a category raises `kTypeMismatch`.
    void Add(const std::shared_ptr<IListItem>& item, bool newItem) override {
        const auto category = std::dynamic_pointer_cast<CategoryItem>(item);
        if (!category) {
            RaiseRuntimeError(runtimeerror::kTypeMismatch);
        }
        m_list.Add(category, newItem);
    }
    void Remove(std::int32_t index) override { m_list.Remove(index); }
    void Remove(std::string_view key) override { m_list.Remove(key); }
    bool Contains(std::string_view key) const override { return m_list.Contains(key); }
    bool Selected(std::int32_t index) const override { return m_list.Selected(index); }
    bool Selected(std::string_view key) const override { return m_list.Selected(key); }
    std::int32_t SelectedCount() const override { return m_list.SelectedCount(); }
    void Clear() override { m_list.Clear(); }
    /// Required: always empty.
    std::string Key(std::int32_t index) const override { return m_list.Key(index); }

private:
    CategoryList& m_list;
};

}  // namespace dorvik
