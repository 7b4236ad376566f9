#pragma once

#include "platform/ByteSet.h"
#include "platform/PatternTree.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// What stands in every text that a pattern matches. Any part may be empty: nothing is known.
struct PatternNeeds {
    ByteSet Bytes;
    std::string Literal;             // one piece of text, the longest that is known
    std::vector<std::string> OneOf;  // pieces of text one of which is there
    std::optional<ByteSet> First;    // the text begins with one of these bytes

    /// False: the text has no match, told in a few nanoseconds. `present` holds the bytes of the text.
    bool MayMatch(std::string_view text, const ByteSet& present) const {
        return present.ContainsAll(Bytes) &&
               (!First || (!text.empty() && First->Contains(static_cast<unsigned char>(text[0]))));
    }
    /// False: the text has no match, told by its pieces, which takes longer.
    bool HasPieces(std::string_view text) const;
};

/// Only literal characters contribute that can be neither skipped nor passed by on another branch,
/// without regard to case only those that have no case.
PatternNeeds NeedsOfPattern(const PatternTree& tree);

}  // namespace dorvik
