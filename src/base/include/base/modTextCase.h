#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// The one comparison and search of text without regard to case. All letters fold, not only ASCII
/// ones, by comparing lower-case forms (simple case mapping, one character to one character).
/// Positions are byte offsets from 0; `std::string_view::npos` is "none".
namespace dorvik::modTextCase {

bool Equal(std::string_view left, std::string_view right);
/// Negative, 0 or positive, by the code points of the lower-case forms.
int Compare(std::string_view left, std::string_view right);
bool StartsWith(std::string_view text, std::string_view prefix);
bool EndsWith(std::string_view text, std::string_view suffix);
/// The first place at or after `from` where `sought` is in any case. An empty `sought` is found at `from`.
std::size_t Find(std::string_view text, std::string_view sought, std::size_t from = 0);
/// Every occurrence of `sought`, in any case, replaced; the search continues after each replacement.
std::string
ReplaceAll(std::string_view text, std::string_view sought, std::string_view replacement);

std::string ToLower(std::string_view text);
std::string ToUpper(std::string_view text);

/// Equal texts have equal hashes; for lookup tables over case-blind keys.
std::size_t Hash(std::string_view text);

}  // namespace dorvik::modTextCase
