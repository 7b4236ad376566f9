#pragma once

#include "foundation/lists/LongArrayList.h"

#include <cstdint>

namespace dorvik {

/// The limits that turn a review's figures into a verdict, as a rulebase and the criteria of a
/// review hold them. -1 is "not set", anything above is a limit, 0 included.
/// Places of the lists: 1 to 5 the severity levels, 6 the total.
struct ToleranceSettings {
    static constexpr std::int32_t kPlaces = 6;
    static constexpr std::int32_t kNotSet = -1;

    ToleranceSettings();

    /// Whether there is any limit.
    // Required: the totals count here, unlike in `VerdictReader::TolerancesSet`.
    bool IsAnySet() const;

    LongArrayList Count;                          // violations
    LongArrayList Impact;                         // points
    std::int32_t PercentageComments = kNotSet;    // least percentage
    std::int32_t CyclomaticComplexity = kNotSet;  // greatest complexity of a procedure
};

}  // namespace dorvik
