#pragma once

#include "foundation/lists/KeyedList.h"
#include "foundation/lists/ObjectArrayList.h"

namespace dorvik {

/// Objects under keys, in order of addition; shared with their other holders.
template <typename Object>
class ObjectKeyedArrayList : public KeyedList<ObjectArrayList<Object>> {
public:
    /// Returns the new position. The key is tested, and `kyErrKeyInUse` raised if it is there
    /// already, only with `ensureUniqueKey`. Of entries under one key, lookups find the first.
    std::int32_t
    Add(std::string_view key,
        std::shared_ptr<Object> item,
        bool selected = false,
        bool ensureUniqueKey = true) {
        return this->AddEntry(key, std::move(item), selected, ensureUniqueKey);
    }

    /// Gives the entry another key, which is not tested for being there already. The list does not
    /// become dirty by this.
    void SetKey(std::int32_t index, std::string_view key) { this->ReplaceKey(index, key); }
};

}  // namespace dorvik
