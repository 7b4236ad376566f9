#pragma once

#include "foundation/PlainList.h"

#include <cstdint>

namespace dorvik {

/// A list of 32-bit numbers.
using LongArrayList = PlainList<std::int32_t>;

}  // namespace dorvik
