#pragma once

#include <string_view>

namespace dorvik {

/// Under which keys the settings are kept: the facts of the installation for the machine, the choices for the user.
inline constexpr std::string_view kInstallationKey = "Software\\Lumbrook\\Dorvik\\6.2";
inline constexpr std::string_view kWorkbenchKey = "Software\\Lumbrook\\Dorvik\\6.2\\DVKWork";

}  // namespace dorvik
