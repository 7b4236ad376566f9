#include "rulebase/model/AuthorisedItemList.h"

#include "base/modKyErrors.h"
#include "foundation/log/Trap.h"
#include "rulebase/model/AuthorisedItem.h"

namespace dorvik {

template <class ItemClass>
std::int32_t AuthorisedItemList<ItemClass>::SelectedCount() const {
    std::int32_t count = 0;
    for (const auto& item : m_items) {
        count += item->Selected() ? 1 : 0;
    }
    return count;
}

template <class ItemClass>
void AuthorisedItemList<ItemClass>::Remove(std::int32_t index) {
    if (!IsPosition(index)) {
        RaiseNoSuchItem("Remove");
    }
    m_items.Remove(index);
    m_dirty = true;
}

template <class ItemClass>
const std::shared_ptr<ItemClass>& AuthorisedItemList<ItemClass>::Item(std::int32_t index) const {
    if (!IsPosition(index)) {
        RaiseNoSuchItem("Item");
    }
    return m_items.Item(index);
}

template <class ItemClass>
const std::shared_ptr<ItemClass>&
AuthorisedItemList<ItemClass>::Item(std::string_view libID) const {
    return Item(FindByLibID(libID));
}

template <class ItemClass>
void AuthorisedItemList<ItemClass>::RemoveByLibID(std::string_view libID) {
    Trap({m_className, "RemoveByLibID"}, [&] {
        const std::int32_t index = m_items.FindIndexByKey(libID);
        if (index != -1) {
            m_items.Remove(index);
            m_dirty = true;
        }
    });
}

template <class ItemClass>
std::int32_t AuthorisedItemList<ItemClass>::FindByLibID(std::string_view libID) const {
    return Trapped({m_className, "FindByLibID"}, -1, [&] { return m_items.FindIndexByKey(libID); });
}

template <class ItemClass>
bool AuthorisedItemList<ItemClass>::AddUnderItsLibID(const std::shared_ptr<ItemClass>& item) {
    if (Contains(item->LibID())) {
        return false;
    }
    m_items.Add(item->LibID(), item, false, false);
    m_dirty = true;
    return true;
}

template <class ItemClass>
void AuthorisedItemList<ItemClass>::RaiseNoSuchItem(std::string_view procedure) const {
    modKyErrors::RaiseError(
        modKyErrors::kyErrNoSuchItem, std::string(m_className) + "::" + std::string(procedure));
}

template class AuthorisedItemList<AuthorisedComponent>;
template class AuthorisedItemList<AuthorisedReference>;

}  // namespace dorvik
