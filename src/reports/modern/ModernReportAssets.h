#pragma once

#include <string_view>

/// The script and the style of the interactive page, which the build makes from the files in assets.
namespace dorvik::modModernReportAssets {

extern const std::string_view kScript;
extern const std::string_view kStyle;

/// Their SHA-256 in hexadecimal: what the page's content security policy allows and nothing else.
extern const std::string_view kScriptSha256;
extern const std::string_view kStyleSha256;

}  // namespace dorvik::modModernReportAssets
