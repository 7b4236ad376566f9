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

    /// As it stands in a text.
    std::string Text() const { return "%" + Object + "." + Property + "%"; }
};

/// Finds the tags that a review fills in, the way the review looks for them.
namespace modTextTags {

/// So many different tags of one text are filled in; any other stays as it stands.
inline constexpr std::size_t kMostTags = 100;
/// The bytes that a text may grow to as its tags are filled in; a tag that would take it beyond stays as it
/// stands.
inline constexpr std::size_t kLargestText = 65'536;

struct TagsOfText {
    std::vector<TextTag> Tags;  // each once, in the order of their first places
    bool HasMore = false;       // the first tag that is one too many ended the search
    /// What ended the search early: the text between two percent signs that is no tag. Empty if
    /// nothing did.
    std::string Stopper;
    /// Tags behind the stopper, which stay in the text as they stand.
    std::vector<TextTag> Unreached;
};

// Required: the first pair of percent signs that encloses no tag ends the search.
TagsOfText Find(std::string_view text);

/// The text with a value in every place of a tag, in any case. `tag` has its percent signs.
std::string FillIn(std::string_view text, std::string_view tag, std::string_view value);
/// The number of those places.
std::size_t CountPlaces(std::string_view text, std::string_view tag);

/// The two parts of "Object.Property", split at the first point; an empty object where there is none.
TextTag Split(std::string_view objectAndProperty);

}  // namespace modTextTags

}  // namespace dorvik
