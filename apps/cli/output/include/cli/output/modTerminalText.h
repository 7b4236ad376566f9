#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// What a piece of text stands for, so that a terminal can colour it.
enum class Shade { Plain, Heading, Dim, Good, Caution, Bad };

/// Text for a terminal. Names and lines of a project come from anywhere, so nothing of them may steer the
/// terminal: neither colours and cursor (control characters, of C1 too) nor the direction of the line.
namespace modTerminalText {

/// One line of text with everything that steers a terminal in visible form: `\x1B`, `\u202E`. A tab is a
/// blank, and a byte that belongs to no character U+FFFD.
std::string Harmless(std::string_view text);
/// The same for text of several lines that the program itself has put together: line ends and tabs stay,
/// and, where the output is coloured, the program's own colours.
std::string HarmlessLines(std::string_view text, bool coloured);
/// JSON text with the same characters as escapes of JSON, which leaves its values as they are.
std::string HarmlessJson(std::string_view json);

/// The lines of a text, broken at blanks so that each has `width` characters at most; a longer word is
/// cut. An empty text is one empty line. Blanks at the start of a line of the text stay.
std::vector<std::string> Wrap(std::string_view text, std::size_t width);
/// The text in the colour of its shade, or as it is.
std::string Shaded(std::string_view text, Shade shade, bool coloured);

}  // namespace modTerminalText

}  // namespace dorvik
