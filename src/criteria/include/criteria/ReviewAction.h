#pragma once

#include <cstdint>

/// What a review is doing: the values of `ProgressInfo::Action`.
namespace dorvik::reviewaction {

inline constexpr std::int32_t kLoadingRulebase = 1;
inline constexpr std::int32_t kReviewing = 2;
inline constexpr std::int32_t kGeneratingReport = 3;
inline constexpr std::int32_t kExtractingNames = 4;
inline constexpr std::int32_t kLoadingReferences = 5;
inline constexpr std::int32_t kInitialisingReview = 6;
inline constexpr std::int32_t kLoadingComponents = 7;

}  // namespace dorvik::reviewaction
