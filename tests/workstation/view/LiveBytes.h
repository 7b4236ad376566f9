#pragma once

#include <cstddef>

namespace dorvik::test {

/// The heap memory that this test program holds through `new`.
std::size_t LiveBytes();
/// The most that it held since `ResetPeak`.
std::size_t PeakBytes();
void ResetPeak();

}  // namespace dorvik::test
