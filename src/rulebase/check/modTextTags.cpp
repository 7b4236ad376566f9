#include "rulebase/check/modTextTags.h"

#include "base/modTextCase.h"

namespace dorvik::modTextTags {

namespace {

/// The next text from `position` on that is enclosed in percent signs, with them; empty if there is none.
std::string_view NextPair(std::string_view text, std::size_t position) {
    const std::size_t first = text.find('%', position);
    if (first == std::string_view::npos) {
        return {};
    }
    const std::size_t second = text.find('%', first + 1);
    if (second == std::string_view::npos) {
        return {};
    }
    return text.substr(first, second - first + 1);
}

bool IsTag(std::string_view pair) {
    const std::size_t point = pair.find('.');
    return pair.find(' ') == std::string_view::npos && point != std::string_view::npos && point > 1;
}

std::string_view Inside(std::string_view pair) {
    return pair.substr(1, pair.size() - 2);
}

/// Calls the action with the start and the size of each occurrence of the tag. No other percent sign is inside a tag.
template <typename Action>
void ForEachOccurrence(std::string_view text, std::string_view tag, Action&& action) {
    std::size_t position = 0;
    for (std::string_view pair = NextPair(text, position); !pair.empty();
         pair = NextPair(text, position)) {
        const auto start = static_cast<std::size_t>(pair.data() - text.data());
        const bool isTag = modTextCase::Equal(pair, tag);
        if (isTag) {
            action(start, pair.size());
        }
        // The closing sign of another pair may open this tag.
        position = start + (isTag ? pair.size() : pair.size() - 1);
    }
}

/// All tags of a text, also those after a percent sign that begins none.
std::vector<TextTag> TagsAnywhere(std::string_view text) {
    std::vector<TextTag> tags;
    std::size_t position = 0;
    for (std::string_view pair = NextPair(text, position); !pair.empty();
         pair = NextPair(text, position)) {
        const auto start = static_cast<std::size_t>(pair.data() - text.data());
        const bool isTag = IsTag(pair);
        if (isTag) {
            tags.push_back(Split(Inside(pair)));
        }
        // The closing sign of a text that is not a tag may open the next tag.
        position = start + (isTag ? pair.size() : pair.size() - 1);
    }
    return tags;
}

}  // namespace

std::string FillIn(std::string_view text, std::string_view tag, std::string_view value) {
    std::string filled;
    std::size_t done = 0;
    ForEachOccurrence(text, tag, [&](std::size_t start, std::size_t size) {
        filled.append(text.substr(done, start - done)).append(value);
        done = start + size;
    });
    return filled.append(text.substr(done));
}

std::size_t CountPlaces(std::string_view text, std::string_view tag) {
    std::size_t count = 0;
    ForEachOccurrence(text, tag, [&count](std::size_t, std::size_t) { ++count; });
    return count;
}

TextTag Split(std::string_view objectAndProperty) {
    const std::size_t point = objectAndProperty.find('.');
    if (point == std::string_view::npos) {
        return {"", std::string(objectAndProperty)};
    }
    return {
        std::string(objectAndProperty.substr(0, point)),
        std::string(objectAndProperty.substr(point + 1))};
}

TagsOfText Find(std::string_view text) {
    TagsOfText found;
    std::string working(text);
    while (true) {
        const std::string_view pair = NextPair(working, 0);
        if (pair.empty()) {
            return found;
        }
        if (!IsTag(pair)) {
            found.Stopper = Inside(pair);
            const auto start = static_cast<std::size_t>(pair.data() - working.data());
            found.Unreached = TagsAnywhere(std::string_view(working).substr(start + 1));
            return found;
        }
        if (found.Tags.size() == kMostTags) {
            found.HasMore = true;
            return found;
        }
        found.Tags.push_back(Split(Inside(pair)));
        // In upper and lower case: a review replaces all occurrences of a tag at once.
        working = FillIn(working, std::string(pair), "@");
    }
}

}  // namespace dorvik::modTextTags
