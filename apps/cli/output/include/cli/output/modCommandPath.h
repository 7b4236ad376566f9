#pragma once

#include "platform/host/modFiles.h"

#include <filesystem>
#include <string>

namespace dorvik {

/// The paths that a user types, relative to the working folder.
namespace modCommandPath {

/// The whole path on this machine, `..` parts taken off as text. Raises 76 where the path is relative and the
/// working folder is not there any more.
std::filesystem::path Absolute(const std::string& typed);
/// The same in the program's form.
std::string Inner(const std::string& typed, int codePage = modFiles::kNameCodePage);

}  // namespace modCommandPath

}  // namespace dorvik
