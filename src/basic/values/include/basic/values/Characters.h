#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Characters of the texts that scripts handle: UTF-8 in which a lone half of a surrogate pair (from
/// `ChrW`) is in its three-byte form and counts as one character. Positions are byte offsets from 0.
namespace dorvik::basic::modCharacters {

/// Number of characters.
std::size_t Count(std::string_view text);
/// The offset after `count` characters that begin at `from`; the size of the text if it has fewer.
std::size_t Skip(std::string_view text, std::size_t count, std::size_t from = 0);
/// The offset of the character that ends before `position`. REQUIRES: position > 0.
std::size_t Previous(std::string_view text, std::size_t position);
/// The character that begins at `position`, surrogates too; moves `position` after it.
/// REQUIRES: position < text.size().
char32_t Next(std::string_view text, std::size_t& position);
/// Appends a character, surrogates too. REQUIRES: codePoint < 0x110000.
void Append(std::string& text, char32_t codePoint);

/// The character of a code of code page 1252.
char32_t FromCodePage(unsigned char code);
/// The code of a character in code page 1252, that of "?" for one that it lacks.
unsigned char ToCodePage(char32_t codePoint);

}  // namespace dorvik::basic::modCharacters
