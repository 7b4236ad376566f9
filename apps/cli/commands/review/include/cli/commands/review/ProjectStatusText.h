#pragma once

#include "source/VirtualProject.h"
#include "source/VirtualSourceFile.h"

#include <string>
#include <string_view>

namespace dorvik {

/// The sentence for a project file that could not be loaded. `filename` is its name, `project` what was
/// tried to be loaded from it.
std::string ProjectStatusText(std::string_view filename, const VirtualProject& project);

/// The sentence for a source file that was not, or not wholly, reviewed.
std::string SourceFileStatusText(const UnreviewedFile& file);

/// The sentence for a source file that was reviewed, but for a part of its layout.
std::string CutLayoutText(std::string_view filename, const LayoutFault& fault);

}  // namespace dorvik
