#pragma once

#include <string_view>

namespace dorvik::modDorvikUtils {

/// Whether a name is that of a project file: its last three characters are "vbp" in any case.
/// Required: nothing looks for the dot in front of them.
bool IsVBPFile(std::string_view filename);

}  // namespace dorvik::modDorvikUtils
