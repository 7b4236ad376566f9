#pragma once

#include <cstdint>

namespace dorvik {

/// The keys of the review and of its project in a results database; 0 until known.
struct ReviewKeys {
    std::int32_t ReviewID = 0;
    std::int32_t ProjectID = 0;
};

}  // namespace dorvik
