#pragma once

#include <cstdint>
#include <string>

namespace dorvik {

/// One measure that missed its tolerance. At project level both figures are 0: not available.
struct ToleranceFailure {
    std::string Description;
    std::int32_t ToleranceValue = 0;  // the actual figure
    std::int32_t ToleranceLimit = 0;

    friend bool operator==(const ToleranceFailure&, const ToleranceFailure&) = default;
};

}  // namespace dorvik
