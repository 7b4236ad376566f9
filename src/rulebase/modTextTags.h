#pragma once

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

struct TagsOfText {
    std::vector<TextTag> Tags;  // each once, in the order of their first places
    /// What ended the search early: the text between two percent signs that is no tag. Empty if
    /// nothing did.
    std::string Stopper;
    /// Tags behind the stopper, which stay in the text as they stand.
    std::vector<TextTag> Unreached;
};

// Required: the first pair of percent signs that encloses no tag ends the search.
TagsOfText Find(std::string_view text);

/// The two parts of "Object.Property", split at the first point; an empty object where there is none.
TextTag Split(std::string_view objectAndProperty);

}  // namespace modTextTags

}  // namespace dorvik
