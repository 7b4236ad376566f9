#pragma once

#include <cstddef>

namespace dorvik::basic {

/// Steps of a long loop of a function after which the host is polled whether to continue.
inline constexpr std::size_t kWorkBetweenBreaths = 4096;

/// Counts the steps (elements looked at, characters compared) of an operation that may take long, so that
/// the machine that runs can look at its limits and ask its host now and then. Raises the machine's
/// uncatchable stop; REQUIRES: the caller has no operation half done.
void CountLongWork(std::size_t steps);
/// The same for what mostly takes no step.
inline void CountRareLongWork(std::size_t steps) {
    if (steps > 0) {
        CountLongWork(steps);
    }
}

}  // namespace dorvik::basic
