#pragma once

#include <string>
#include <string_view>
#include <vector>

/// What all formats of the `Format` function have in common: literal characters and sections.
namespace dorvik::basic::modFormatPattern {

/// What a pattern formats, by the first character with a meaning.
enum class Kind : std::uint8_t { Number, Date, Text };
Kind KindOf(std::string_view pattern);

/// If a literal (`\x` or `"text"`) begins at `position`, appends it and moves after it.
bool TakeLiteral(std::string_view pattern, std::size_t& position, std::string& literal);

/// The parts between semicolons that are not literals.
std::vector<std::string_view> Sections(std::string_view pattern);

/// How often the character at `position` is repeated, in any case, at most `most` times.
std::size_t RunLength(std::string_view pattern, std::size_t position, std::size_t most);

/// The letter in its small form; anything else as it is.
char Lower(char character);

/// The mark of a half day ("AM/PM", "a/p", "AMPM", ...) that begins at `position`; empty if none does.
std::string_view HalfDayMark(std::string_view pattern, std::size_t position);

}  // namespace dorvik::basic::modFormatPattern
