#pragma once

#include "base/Variant.h"
#include "foundation/PlainList.h"

namespace dorvik {

/// A list of values of any kind, a text here and a number there. `IndexOfValue` compares their texts.
using ArrayList = PlainList<Variant>;

}  // namespace dorvik
