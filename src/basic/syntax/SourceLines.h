#pragma once

#include <string_view>
#include <vector>

namespace dorvik::basic {

/// The physical lines of a text without their ends (CR LF, LF or CR, mixed at will). The views point
/// into `text`. A text that ends with a line end has no empty line after it.
std::vector<std::string_view> SplitLines(std::string_view text);

}  // namespace dorvik::basic
