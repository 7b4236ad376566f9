#include "parser/ObjectScope.h"

#include "base/modKyErrors.h"
#include "modNames.h"

#include <utility>

namespace dorvik {

const ObjectScope::Entry* ObjectScope::Find(std::string_view name) const {
    return modNames::FindRow(m_entries, name);
}

void ObjectScope::Attach(std::shared_ptr<VirtualObject> object, std::string_view name) {
    if (Find(name) != nullptr) {
        modKyErrors::RaiseError(modKyErrors::kyErrKeyInUse, "KeyedArrayList::Add", name);
    }
    m_entries.push_back({std::string(name), std::move(object)});
}

void ObjectScope::Detach(std::string_view name) {
    const Entry* entry = Find(name);
    if (entry == nullptr) {
        modKyErrors::RaiseError(modKyErrors::kyErrNoSuchItem, "KeyedArrayList::Remove");
    }
    m_entries.erase(m_entries.begin() + (entry - m_entries.data()));
}

}  // namespace dorvik
