#pragma once

#include "platform/ByteSet.h"
#include "platform/PatternTree.h"

#include <string>

namespace dorvik {

/// What stands in every text that a pattern matches. Both parts may be empty: nothing is known.
struct PatternNeeds {
    ByteSet Bytes;
    std::string Literal;  // one piece of text, the longest that is known
};

/// Only literal characters contribute that can be neither skipped nor passed by on another branch,
/// without regard to case only those that have no case.
PatternNeeds NeedsOfPattern(const PatternTree& tree);

}  // namespace dorvik
