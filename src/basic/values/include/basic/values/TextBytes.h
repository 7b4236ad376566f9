#pragma once

#include "basic/values/Value.h"

#include <string>
#include <string_view>

/// The bytes that a text has in UTF-16, the lower one of each unit first, and arrays of bytes. A text of an odd number
/// of bytes cannot be held: a 0 is appended.
namespace dorvik::basic::modTextBytes {

std::string BytesOf(std::string_view text);
std::string TextOf(std::string_view bytes);

bool IsByteArray(const Value& value);
/// The elements of an array of bytes, or the bytes of the value's text: from one on, so many of them or all. Raises 94
/// for Null, 13 for an Error.
std::string
BytesIn(const Value& value, std::size_t from = 0, std::size_t count = std::string::npos);
/// How many bytes those are in all.
std::size_t CountIn(const Value& value);
/// A dynamic array from 0. Raises 7 beyond the memory limit.
Value ArrayOf(std::string_view bytes);

/// Bytes in code page 1252; a character that it lacks is "?".
std::string InCodePage(std::string_view text);
/// The text whose characters are the bytes in code page 1252.
std::string FromCodePage(std::string_view bytes);

}  // namespace dorvik::basic::modTextBytes
