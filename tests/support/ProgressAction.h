#pragma once

#include <cstdint>

namespace dorvik::test {

/// What a review says that it is doing: the numbers of ProgressInfo::Action.
enum ProgressAction : std::int32_t {
    LoadingRulebase = 1,
    Reviewing = 2,
    GeneratingReport = 3,
    ExtractingNames = 4,
    LoadingReferences = 5,
    InitialisingReview = 6,
    LoadingComponents = 7,
};

}  // namespace dorvik::test
