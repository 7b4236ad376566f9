#pragma once

#include "basic/values/Value.h"

#include <optional>
#include <string>
#include <string_view>

namespace dorvik::basic {

/// The value of a number as written, followed by its suffix. Nothing for one that its type cannot hold;
/// `problem` then says why.
std::optional<Value> NumberLiteral(std::string_view text, char suffix, std::string& problem);
/// The value of a string as written, quotes and all; the last quote may be missing.
Value StringLiteral(std::string_view text);
/// The value of the text between the signs of a date; nothing if it is none.
std::optional<Value> DateLiteral(std::string_view text);

}  // namespace dorvik::basic
