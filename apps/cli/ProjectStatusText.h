#pragma once

#include "source/VirtualProject.h"
#include "source/VirtualSourceFile.h"

#include <string>
#include <string_view>

namespace dorvik {

/// The sentence for a project file that could not be loaded.
std::string ProjectStatusText(std::string_view filename, ProjectLoadStatus status);

/// The sentence for a source file that was not, or not wholly, reviewed.
std::string SourceFileStatusText(const UnreviewedFile& file);

}  // namespace dorvik
