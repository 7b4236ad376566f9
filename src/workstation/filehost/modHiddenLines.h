#pragma once

#include "source/FileType.h"

#include <cstddef>
#include <string>
#include <vector>

/// Which lines of a source file the environment's code window does not show.
namespace dorvik::modHiddenLines {

/// How many lines at the begin are not: up to the attribute with the name, or, without it, the header and the layout.
std::size_t HeadCount(const std::vector<std::string>& lines, FileType type);

/// For each line from `first` on whether it is part of an attribute.
std::vector<bool> AttributeLines(const std::vector<std::string>& lines, std::size_t first);

}  // namespace dorvik::modHiddenLines
