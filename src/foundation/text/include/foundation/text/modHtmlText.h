#pragma once

#include <string>
#include <string_view>

/// Text on its way into an HTML page. Whatever comes out of a file passes through here, once.
namespace dorvik::modHtmlText {

/// The text so that a page shows it as it is written, between tags as well as in a quoted attribute: "&",
/// "<", ">" and both quotes are written out. What no page may hold (control characters, bytes that
/// are not UTF-8) becomes U+FFFD; tabs and line ends stay.
std::string Escape(std::string_view text);

}  // namespace dorvik::modHtmlText
