#pragma once

#include <string>
#include <string_view>

/// What a link says so that a browser finds the file, opened from disk as well. A name that needs
/// nothing comes out as it stands, blanks and letters outside ASCII included (browsers take them as
/// they are; `modReportFile` writes the letters). Percent-encoded are only the characters that would
/// end the path or change its meaning: % # ? & : quotes, angle brackets, control characters, blanks at
/// either end, and bytes of a name on disk that are no UTF-8.
namespace dorvik::modReportLinks {

/// A link to a file in the folder of the page, so the folder can be moved as a whole.
std::string HrefOfFile(std::string_view filename);

/// A link to a file somewhere on the machine that the page is made on, by its inside path: the path
/// as the host writes it. A path that can be none of this machine (`C:\Src\a.txt`) gets a link that
/// leads there on the machine that it is of (`file:///C:/Src/a.txt`).
std::string HrefOfPath(std::string_view path);

/// The text of an inside path on a page: as this machine writes it; a path that can be none of this
/// machine (`C:\Src\a.bas`) as it stands.
std::string PathText(std::string_view path);

}  // namespace dorvik::modReportLinks
