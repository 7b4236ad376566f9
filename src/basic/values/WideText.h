#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// A text in which each character has four bytes, whatever it takes in UTF-8, so that one is overwritten by another
/// without moving what follows it. A character's bytes are those that it has in UTF-8, filled up with zeros; what
/// comes back is byte for byte what went in.
namespace dorvik::basic::modWideText {

inline constexpr std::size_t kWidth = 4;

/// Makes the form of a text of `length` characters. Empty if one does not fit, which no valid text has.
std::string Widened(std::string_view text, std::size_t length);
/// `count` characters from `first` on in UTF-8.
std::string Narrowed(std::string_view wide, std::size_t first, std::size_t count);
/// Overwrites the `count` characters that `part`, in UTF-8, has. False, with nothing changed, if one does not fit.
bool Overwrite(std::string& wide, std::size_t first, std::size_t count, std::string_view part);

}  // namespace dorvik::basic::modWideText
