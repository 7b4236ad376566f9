#pragma once

#include <cstdint>
#include <string_view>

namespace dorvik {

/// The environment's numbers of the kinds of project.
enum class HostProjectType : std::int32_t {
    StandardExe = 0,
    ActiveXExe = 1,
    ActiveXDll = 2,
    ActiveXControl = 3
};

/// As a project file names the type: "Exe", "OleExe", "OleDll" or "Control".
std::string_view NameOf(HostProjectType type);
/// By that name, without regard to case; a standard program for any other.
HostProjectType HostProjectTypeOf(std::string_view name);

}  // namespace dorvik
