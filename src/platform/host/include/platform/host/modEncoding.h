#pragma once

#include <optional>
#include <string>
#include <string_view>

/// From the bytes of a file to the program's UTF-8, and back. A code page is named by its Windows number:
/// 874, 1250 to 1258, 437, 850, 866, 28591 (Latin-1), 65001 (UTF-8), and the double-byte pages 932,
/// 936, 949 and 950. No input fails: a byte that a single-byte page leaves undefined becomes the
/// character of the same number, a byte that is not UTF-8 its Windows-1252 character, and what a
/// double-byte page or UTF-16 cannot tell becomes U+FFFD. ASCII text comes back unchanged.
namespace dorvik::modEncoding {

/// Windows-1252, the page of most project and source files.
inline constexpr int kDefaultCodePage = 1252;

bool IsKnownCodePage(int codePage);

/// Whether the bytes begin with the byte order mark of UTF-8 or of UTF-16.
bool HasMark(std::string_view bytes);

/// The text of a whole file. A byte order mark (UTF-8, UTF-16 in either byte order) wins over the
/// code page and is never part of the text. Raises `kInvalidProcedureCall` for an unknown code page.
std::string Decode(std::string_view bytes, int codePage);

/// UTF-16 without a mark, or after one. An odd byte at the end is U+FFFD.
std::string DecodeUtf16(std::string_view bytes, bool isBigEndian);

/// As `Decode`, but ASCII text stays where it is, so that a large file is not held twice.
void DecodeInPlace(std::string& bytes, int codePage);

/// The text of a part of a file or of a name on disk, where a byte order mark has no meaning.
std::string DecodeByPage(std::string_view bytes, int codePage);

/// The way back of `DecodeByPage`. Nothing where the page lacks a character of the text, which U+FFFD is for every
/// page but UTF-8.
std::optional<std::string> EncodeByPage(std::string_view text, int codePage);
/// UTF-16 without a mark.
std::string EncodeUtf16(std::string_view text, bool isBigEndian);

}  // namespace dorvik::modEncoding
