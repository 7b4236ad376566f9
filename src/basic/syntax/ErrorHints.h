#pragma once

#include "basic/syntax/CompileError.h"

#include <string_view>
#include <vector>

namespace dorvik::basic {

/// Puts behind the text of an error what its author may have meant, where the line shows the habit of another
/// language (`!=`, `==`, `//`, a text in single quotes) or a text that is not closed. `lines` are the module's.
void AddHints(std::vector<CompileError>& errors, const std::vector<std::string_view>& lines);

}  // namespace dorvik::basic
