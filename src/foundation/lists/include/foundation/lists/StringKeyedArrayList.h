#pragma once

#include "foundation/lists/KeyedList.h"

namespace dorvik {

/// Texts under keys, in order of addition.
class StringKeyedArrayList : public KeyedList<StringArrayList> {
public:
    /// Raises `kyErrKeyInUse` if the key is there already.
    void Add(std::string_view key, std::string item, bool selected = false) {
        AddEntry(key, std::move(item), selected, /*ensureUniqueKey=*/true);
    }
};

}  // namespace dorvik
