#pragma once

#include <cstdint>
#include <span>

namespace dorvik {

/// A run of characters that are equally far from their other case: `First`, every `Step`-th one
/// after it, to `Last`. `Distance` is what to add for the other case.
struct CaseRun {
    std::uint32_t First;
    std::uint32_t Last;
    std::uint32_t Step;
    std::int32_t Distance;
};

/// The simple case mappings of all characters outside ASCII, rising. Only `modTextCase` and `modPatternCase` read them.
std::span<const CaseRun> LowerRuns();
std::span<const CaseRun> UpperRuns();

}  // namespace dorvik
