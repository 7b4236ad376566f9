#pragma once

#include <cstddef>

namespace dorvik {

/// How often this test program has asked for heap memory through `new` so far.
std::size_t AllocationCount();

}  // namespace dorvik
