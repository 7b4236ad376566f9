#pragma once

#include "foundation/lists/ObjectKeyedArrayList.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace dorvik {

/// What the lists of authorised components and references have in common: items keyed by their
/// `LibID` without case, 1-based, and a dirty flag of its own.
template <class ItemClass>
class AuthorisedItemList {
public:
    virtual ~AuthorisedItemList() = default;
    AuthorisedItemList(const AuthorisedItemList&) = delete;
    AuthorisedItemList& operator=(const AuthorisedItemList&) = delete;

    std::int32_t Count() const { return m_items.Count(); }
    auto begin() const { return m_items.begin(); }
    auto end() const { return m_items.end(); }
    /// Counts the items' own `Selected`, not the flags of the list.
    std::int32_t SelectedCount() const;
    bool Dirty() const { return m_dirty; }
    void SetDirty(bool dirty) { m_dirty = dirty; }
    bool Contains(std::string_view libID) const { return m_items.Contains(libID); }
    /// Raise `kyErrNoSuchItem` outside the list and for an unknown `LibID`.
    void Remove(std::int32_t index);
    const std::shared_ptr<ItemClass>& Item(std::int32_t index) const;
    const std::shared_ptr<ItemClass>& Item(std::string_view libID) const;
    /// An unknown key does nothing.
    void RemoveByLibID(std::string_view libID);
    /// The 1-based position, -1 if absent.
    std::int32_t FindByLibID(std::string_view libID) const;

protected:
    explicit AuthorisedItemList(std::string_view className) : m_className(className) {}

    /// Adds the item under its `LibID` if that is new; false otherwise.
    bool AddUnderItsLibID(const std::shared_ptr<ItemClass>& item);
    std::string_view ClassName() const { return m_className; }

private:
    bool IsPosition(std::int32_t index) const { return index >= 1 && index <= Count(); }
    [[noreturn]] void RaiseNoSuchItem(std::string_view procedure) const;

    ObjectKeyedArrayList<ItemClass> m_items;
    std::string_view m_className;  // a literal
    bool m_dirty = false;
};

}  // namespace dorvik
