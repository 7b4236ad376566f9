#pragma once

#include "base/BasicError.h"
#include "foundation/lists/IKeyedList.h"
#include "foundation/lists/ObjectKeyedArrayList.h"

namespace dorvik {

/// An `ObjectKeyedArrayList` of list items, seen as an `IKeyedList`. The list pays nothing for it.
/// REQUIRES: the list outlives this; `Object` implements `IListItem`.
template <typename Object>
class KeyedListView final : public IKeyedList {
public:
    explicit KeyedListView(ObjectKeyedArrayList<Object>& list) : m_list(list) {}

    std::int32_t Count() const override { return m_list.Count(); }
    std::shared_ptr<IListItem> Item(std::int32_t index) const override {
        return m_list.Item(index);
    }
    std::shared_ptr<IListItem> Item(std::string_view key) const override {
        return m_list.Item(key);
    }
    /// An item that is not an `Object` raises `kTypeMismatch`.
    void Add(const std::shared_ptr<IListItem>& item, bool newItem) override;
    void Remove(std::int32_t index) override { m_list.Remove(index); }
    void Remove(std::string_view key) override { m_list.Remove(key); }
    bool Contains(std::string_view key) const override { return m_list.Contains(key); }
    bool Selected(std::int32_t index) const override { return m_list.Selected(index); }
    bool Selected(std::string_view key) const override { return m_list.Selected(key); }
    std::int32_t SelectedCount() const override { return m_list.SelectedCount(); }
    void Clear() override { m_list.Clear(); }
    std::string Key(std::int32_t index) const override { return m_list.Key(index); }

private:
    ObjectKeyedArrayList<Object>& m_list;
};

template <typename Object>
void KeyedListView<Object>::Add(const std::shared_ptr<IListItem>& item, bool newItem) {
    auto object = std::dynamic_pointer_cast<Object>(item);
    if (!object) {
        RaiseRuntimeError(runtimeerror::kTypeMismatch);
    }
    if (newItem) {
        object->SetKey(m_list.NewUniqueKey());
    }
    m_list.Add(object->Key(), object, /*selected=*/false, /*ensureUniqueKey=*/true);
}

}  // namespace dorvik
