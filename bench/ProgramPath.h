#pragma once

#include "platform/host/modHostPath.h"

#include <filesystem>
#include <string>

namespace dorvik {

/// The program's form of a whole path.
inline std::string ProgramPath(const std::filesystem::path& path) {
    return modHostPath::ToProgram(HostPath::FromBytes(path.string()));
}

}  // namespace dorvik
