#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Finds a text of which the user types only some letters: "rvp" finds "Review Project(s)".
namespace dorvik::modFuzzySearch {

/// How well the letters of `sought`, in their order and without regard to case and blanks, are found in `text`: more is
/// better; nothing where they are not all there. Letters at the beginning of words and next to each other count more.
std::optional<int> Score(std::string_view text, std::string_view sought);

/// The positions of the texts that have what is sought, the best first, equal ones in their order. An empty text finds
/// all.
std::vector<std::size_t> Find(const std::vector<std::string>& texts, std::string_view sought);

}  // namespace dorvik::modFuzzySearch
