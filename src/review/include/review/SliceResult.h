#pragma once

#include <cstdint>

namespace dorvik {

/// The result of a time slice, that of a whole review and that of one project alike.
enum class SliceResult : std::int32_t { Continue = 0, Failed = 1, Aborted = 2, Complete = 3 };

/// For `ticks`: the machine runs steps until a result is not `Continue`.
inline constexpr std::int32_t kWholeReview = -1;

}  // namespace dorvik
