#pragma once

#include "base/Variant.h"
#include "foundation/lists/PlainList.h"

namespace dorvik {

/// A list of values of any kind, a text here, a number or an object there. `IndexOfValue` compares their
/// texts, but objects go by identity.
using ArrayList = PlainList<Variant>;

}  // namespace dorvik
