#pragma once

#include <cstdint>

namespace dorvik {

/// How many violations, and the sum of their impacts.
struct ViolationTally {
    std::int32_t Count = 0;
    std::int32_t Impact = 0;

    friend bool operator==(const ViolationTally&, const ViolationTally&) = default;
};

}  // namespace dorvik
