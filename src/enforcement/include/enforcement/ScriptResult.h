#pragma once

#include <cstdint>

namespace dorvik {

/// What a rule's script requested. Of several requests the last one counts.
enum class ScriptResult : std::int32_t {
    Nothing = 1,
    CancelPendingViolation = 2,
    RaiseViolation = 3,
    ApplyConvention = 5,
};

}  // namespace dorvik
