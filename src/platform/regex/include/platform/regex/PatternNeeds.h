#pragma once

#include "platform/regex/PatternTree.h"
#include "platform/regex/TextTraits.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// Pieces of text.
struct PatternPieces {
    std::vector<std::string> Texts;
    std::vector<PairSet> Pairs;  // of each of them
};

/// What is in every text that a pattern matches. Any part may be empty: nothing is known.
struct PatternNeeds {
    ByteSet Bytes;
    std::string Literal;  // one piece of text, the longest that is known
    PairSet Pairs;        // of that
    std::vector<PatternPieces>
        OneOfEach;                 // lists, of each of which one piece is there; the rarest first
    std::optional<ByteSet> First;  // the text begins with one of these bytes

    /// False: the text has no match; takes a few nanoseconds. REQUIRES: traits == TextTraits(text).
    bool MayMatch(std::string_view text, const TextTraits& traits) const {
        return traits.Pairs.ContainsAll(Pairs) && traits.Bytes.ContainsAll(Bytes) &&
               (!First ||
                (!text.empty() && First->Contains(static_cast<unsigned char>(text[0])))) &&
               MayHaveOneOfEach(traits);
    }
    /// False: the text has no match, as it lacks a required literal; takes longer.
    bool HasPieces(std::string_view text) const;

private:
    bool MayHaveOneOfEach(const TextTraits& traits) const;
};

/// Only literal characters contribute that can be avoided neither by a skip nor on another branch,
/// without regard to case only those that have no case.
PatternNeeds NeedsOfPattern(const PatternTree& tree);

}  // namespace dorvik
