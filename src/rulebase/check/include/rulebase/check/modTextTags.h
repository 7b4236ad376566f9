#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// A tag of a violation text, "%Procedure.Name%".
struct TextTag {
    std::string Object;
    std::string Property;

    /// As it is written in a text.
    std::string Text() const { return "%" + Object + "." + Property + "%"; }
};

/// Finds the tags that a review replaces by values, by the same search as the review.
namespace modTextTags {

/// So many different tags of one text are replaced; any other stays as it is written.
inline constexpr std::size_t kMostTags = 100;
/// The bytes that a text may grow to as its tags are replaced; a tag that would exceed them stays as it is
/// written.
inline constexpr std::size_t kLargestText = 65'536;

struct TagsOfText {
    std::vector<TextTag> Tags;  // each once, in the order of first occurrence
    bool HasMore = false;       // there are more than `kMostTags`
    /// The text between two percent signs that is not a tag and ended the search. Empty if none did.
    std::string Stopper;
    /// The tags after the stopper, which stay in the text as they are written.
    std::vector<TextTag> Unreached;
};

// Required: the first pair of percent signs that encloses no tag ends the search.
TagsOfText Find(std::string_view text);

/// The text with each occurrence of a tag, in upper or lower case, replaced by a value. `tag` has its percent
/// signs.
std::string FillIn(std::string_view text, std::string_view tag, std::string_view value);
/// The number of those occurrences.
std::size_t CountPlaces(std::string_view text, std::string_view tag);

/// The two parts of "Object.Property", split at the first point; an empty object where there is none.
TextTag Split(std::string_view objectAndProperty);

}  // namespace modTextTags

}  // namespace dorvik
