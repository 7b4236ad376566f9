#pragma once

#include "review/ReviewStatus.h"

#include <cstdint>

namespace dorvik {

/// Runs steps until `ticks` are done or one gives another result than `Continue`. 0 and 1 both mean
/// one step, `kWholeReview` means no limit: the count is looked at behind a step.
template <typename Step>
SliceResult RunSteps(std::int32_t ticks, Step&& step) {
    std::int32_t stepsLeft = ticks;
    while (true) {
        const SliceResult result = step();
        --stepsLeft;
        if (result != SliceResult::Continue || (ticks != kWholeReview && stepsLeft <= 0)) {
            return result;
        }
    }
}

}  // namespace dorvik
