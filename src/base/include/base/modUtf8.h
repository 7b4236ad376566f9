#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Characters of UTF-8 text. All text inside the program is UTF-8, and lengths and columns that a
/// user or a rule can see count characters. A byte that belongs to no valid sequence counts as one
/// character, so every function gets through any text. ASCII text, the common case, is told apart
/// first and costs no decoding.
namespace dorvik::modUtf8 {

/// What some programs write at the begin of a text to say that it is UTF-8.
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// The text after the mark, or all of it where none is.
std::string_view WithoutByteOrderMark(std::string_view text);

bool IsAscii(std::string_view text);

/// Number of characters.
std::size_t Length(std::string_view text);

/// The part that begins at the 1-based character `start`, `count` characters long or to the end.
/// Empty where `start` is after the end. REQUIRES: start >= 1.
std::string_view
Mid(std::string_view text, std::size_t start, std::size_t count = std::string_view::npos);
std::string_view Left(std::string_view text, std::size_t count);
/// The text without its last `count` characters; empty if it has no more than that.
std::string_view WithoutLast(std::string_view text, std::size_t count);

/// One character as it is written in a text.
struct Character {
    char32_t CodePoint;  // U+FFFD unless valid
    std::size_t Size;    // bytes
    bool Valid;
};

/// The character that begins at `position`. REQUIRES: position < text.size().
Character Decode(std::string_view text, std::size_t position);

/// The byte length of the character that begins at `position`. REQUIRES: position < text.size().
std::size_t CharacterSize(std::string_view text, std::size_t position);

/// The code point that begins at `position`; U+FFFD for a byte that begins no valid sequence.
char32_t CodePoint(std::string_view text, std::size_t position);

/// Appends the character; U+FFFD for a number that is not a character.
void Append(std::string& text, char32_t codePoint);

/// True if every byte belongs to a well-formed sequence (no overlong forms, no surrogates).
bool IsValid(std::string_view text);

/// The text with U+FFFD for every byte that belongs to no well-formed sequence.
std::string WithValidCharacters(std::string_view text);

}  // namespace dorvik::modUtf8
