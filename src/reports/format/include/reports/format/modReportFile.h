#pragma once

#include "foundation/text/OutputPlace.h"

#include <string>
#include <string_view>

/// Writes all report pages to their files.
namespace dorvik::modReportFile {

/// The page in ASCII: each character above U+007F as a numeric character reference; the controls U+0080 to U+009F, and
/// bytes that are not UTF-8, as that of U+FFFD. The pages declare no character set, and in ASCII none can be guessed
/// wrongly.
std::string ToAscii(std::string_view page);

/// Writes the page in ASCII, in place of an earlier file, and nothing else. The folder is created if it does not
/// exist. Raises what `modFiles` raises, among it an `OutputRefusal` if something else than an ordinary file or folder
/// has that name; no part of a page is left behind.
void Write(const OutputPlace& place, std::string_view page);
/// The same for a page that declares its character set.
void WriteAsItIs(const OutputPlace& place, std::string_view page);

}  // namespace dorvik::modReportFile
