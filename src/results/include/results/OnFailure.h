#pragma once

namespace dorvik {

/// What becomes of an operation that fails.
enum class OnFailure : int { Log, Raise };

}  // namespace dorvik
