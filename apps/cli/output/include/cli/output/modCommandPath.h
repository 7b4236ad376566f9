#pragma once

#include "platform/host/modHostPath.h"

#include <string>

namespace dorvik {

/// The paths that a user types, relative to the working folder.
namespace modCommandPath {

/// The whole path in the program's form. Raises as `modHostPath::FromUser` does.
std::string Inner(const std::string& typed, int codePage = modHostPath::kNameCodePage);
/// True where both lead to one and the same file.
bool IsSameFile(const std::string& left, const std::string& right);

}  // namespace modCommandPath

}  // namespace dorvik
