#pragma once

#include <cstdint>

namespace dorvik {

/// What the operations of `NamingConventionHelper` return.
enum class NamingResult : std::int32_t {
    Success = 0,         // or a match
    TestFailed = 1,      // the pattern could not be tested
    UnknownControl = 2,  // the control has no tag, and that is a violation
    NoMatch = 3,
    UnknownScope = 4,     // the scope has no tag
    UnknownDataType = 5,  // the data type has no tag
};

}  // namespace dorvik
