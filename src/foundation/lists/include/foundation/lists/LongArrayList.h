#pragma once

#include "foundation/lists/PlainList.h"

#include <cstdint>

namespace dorvik {

/// A list of 32-bit numbers.
using LongArrayList = PlainList<std::int32_t>;

}  // namespace dorvik
