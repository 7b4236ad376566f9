#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Texts in type libraries are in the ANSI code page of the library's locale.
namespace dorvik::modLocalePage {

/// The code page of a locale (LCID); Windows-1252 where nothing else is known.
int PageOf(std::uint32_t lcid);

/// A name of a library or type. Raises `kInvalidFileFormat` for a name with control characters,
/// which no identifier has; `fileOffset` is where it is, for the sentence.
std::string NameText(std::string_view bytes, int codePage, std::uint64_t fileOffset);

/// A help text; control characters such as line ends become blanks.
std::string HelpText(std::string_view bytes, int codePage);

}  // namespace dorvik::modLocalePage
