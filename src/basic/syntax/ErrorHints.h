#pragma once

#include "basic/syntax/CompileError.h"

#include <string_view>
#include <vector>

namespace dorvik::basic {

/// Adds to the text of an error what the author of the script may have meant, where the line shows the habit of another
/// language (`!=`, `==`, `//`, a text in single quotes) or a text that is not closed. `lines` are the module's.
void AddHints(std::vector<CompileError>& errors, const std::vector<std::string_view>& lines);

}  // namespace dorvik::basic
