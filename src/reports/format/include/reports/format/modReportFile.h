#pragma once

#include "foundation/text/OutputPlace.h"

#include <string>
#include <string_view>

/// The one place where a page becomes a file.
namespace dorvik::modReportFile {

/// The page in ASCII: each character above U+007F as a numeric character reference; the controls U+0080
/// to U+009F, and bytes that are no UTF-8, as that of U+FFFD. The pages declare no character set, and so none can be guessed wrongly.
std::string ToAscii(std::string_view page);

/// Writes the page in ASCII over whatever file is there, with nothing added. The folder is created if
/// need be. Raises what `modFiles` raises, an `OutputRefusal` where no ordinary file or folder lies in the
/// way; no part of a page is left behind.
void Write(const OutputPlace& place, std::string_view page);
/// The same for a page that declares its character set.
void WriteAsItIs(const OutputPlace& place, std::string_view page);

}  // namespace dorvik::modReportFile
