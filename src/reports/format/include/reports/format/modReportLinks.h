#pragma once

#include <string>
#include <string_view>

/// Links with which a browser finds a file, also if the page is opened from disk. Only those characters are
/// percent-encoded that would end the path or change its meaning: % # ? & : quotes, angle brackets, control
/// characters, blanks at either end, and bytes of a name on disk that are not UTF-8. Other blanks and letters outside
/// ASCII are kept, since browsers accept them; `modReportFile` writes them.
namespace dorvik::modReportLinks {

/// A link to a file in the folder of the page, so the folder can be moved as a whole.
std::string HrefOfFile(std::string_view filename);

/// A link to a file anywhere on this machine, by its internal path: the host path. A path that cannot exist on this
/// machine (`C:\Src\a.txt`) gets a link that works on a machine where it does (`file:///C:/Src/a.txt`).
std::string HrefOfPath(std::string_view path);

/// The text of an internal path on a page: the host path or, if it cannot exist on this machine (`C:\Src\a.bas`), the
/// path unchanged.
std::string PathText(std::string_view path);

}  // namespace dorvik::modReportLinks
