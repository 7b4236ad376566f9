#pragma once

#include "platform/ByteSet.h"

#include <string>
#include <string_view>

namespace dorvik {

/// What stands in every text that a pattern matches. Both parts may be empty: nothing is known.
struct PatternNeeds {
    ByteSet Bytes;
    std::string Literal;  // one piece of text, the longest that is known
};

/// Reads the needs from a pattern that compiles. Only literal ASCII characters contribute that can
/// be neither skipped nor passed by on another branch, without regard to case only those that have
/// no case. A pattern with anything in it that is not understood needs nothing.
PatternNeeds NeedsOfPattern(std::string_view pattern, bool ignoreCase);

}  // namespace dorvik
