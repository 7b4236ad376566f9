#pragma once

#include "PatternTree.h"
#include "TextSignature.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// Literals of which every match contains at least one.
struct LiteralChoice {
    std::vector<std::string> Texts;
    std::vector<BigramSet> Bigrams;  // of each text
};

/// A test that rejects most texts without a match in a few nanoseconds, by what every text with a match contains. A
/// part that is empty rejects nothing. `PatternSet` is the only user.
struct Prefilter {
    ByteSet Bytes;
    std::string Literal;                   // the longest literal that every match contains
    BigramSet Bigrams;                     // of `Literal`
    std::vector<LiteralChoice> OneOfEach;  // the rarest first
    std::optional<ByteSet> First;          // the text begins with one of these bytes

    /// False: the text has no match. REQUIRES: signature == TextSignature(text).
    bool MayMatch(std::string_view text, const TextSignature& signature) const {
        return signature.Bigrams.ContainsAll(Bigrams) && signature.Bytes.ContainsAll(Bytes) &&
               (!First ||
                (!text.empty() && First->Contains(static_cast<unsigned char>(text[0])))) &&
               MayHaveOneOfEach(signature);
    }
    /// False: the text has no match, as it lacks a required literal. Searches the text, so it takes longer.
    bool HasLiterals(std::string_view text) const;

private:
    bool MayHaveOneOfEach(const TextSignature& signature) const;
};

/// Of a valid pattern. Only literal characters that every match contains contribute; of a pattern without regard
/// to case, only those that are not letters.
Prefilter PrefilterOf(const PatternTree& tree);

}  // namespace dorvik
