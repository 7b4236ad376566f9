#pragma once

#include <string>
#include <string_view>

namespace dorvik::basic {

/// A text by a pattern of `@ & < > !`. Its second section, if it has one, is for the empty text.
std::string FormatTextByPattern(std::string_view pattern, std::string_view text);

}  // namespace dorvik::basic
