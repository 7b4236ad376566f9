#pragma once

#include "foundation/lists/ArrayList.h"
#include "foundation/lists/KeyedList.h"

namespace dorvik {

/// Values of any kind under keys, in order of addition: a property bag.
class KeyedArrayList : public KeyedList<ArrayList> {
public:
    /// Raises `kyErrKeyInUse` if the key is there already.
    void Add(std::string_view key, Variant item, bool selected = false) {
        AddEntry(key, std::move(item), selected, /*ensureUniqueKey=*/true);
    }
};

}  // namespace dorvik
