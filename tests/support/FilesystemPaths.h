#pragma once

#include "platform/host/modHostPath.h"

#include <filesystem>
#include <string>
#include <string_view>

/// Tests hold the paths of this machine as the standard library does.
namespace dorvik::test {

inline HostPath ToHostPath(const std::filesystem::path& path) {
    return HostPath::FromBytes(path.string());
}

/// The program's form of the path.
inline std::string
ProgramPath(const std::filesystem::path& path, int codePage = modHostPath::kNameCodePage) {
    return modHostPath::ToProgram(ToHostPath(path), codePage);
}

/// The path that the program takes for one of its own.
inline std::filesystem::path
FilesystemPath(std::string_view path, int codePage = modHostPath::kNameCodePage) {
    return modHostPath::FromProgram(path, codePage).Bytes();
}

}  // namespace dorvik::test
