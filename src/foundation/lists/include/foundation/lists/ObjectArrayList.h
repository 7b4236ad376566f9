#pragma once

#include "foundation/lists/PlainList.h"

#include <memory>

namespace dorvik {

/// A list of objects, which it shares with others; `IndexOfValue` goes by identity. `Item` gives the
/// object itself, never a copy. A slot that was never written holds no object.
template <typename Object>
using ObjectArrayList = PlainList<std::shared_ptr<Object>>;

}  // namespace dorvik
