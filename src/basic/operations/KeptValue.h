#pragma once

#include "basic/values/Value.h"

namespace dorvik::basic {

/// The value as a variable of its own keeps it; `isFresh`: it is in a slot that nothing reads again.
Value Kept(const Value& value, bool isFresh);
/// Raises 10 for a variable that holds a locked array.
void CheckUnlocked(const Value& variable);

}  // namespace dorvik::basic
