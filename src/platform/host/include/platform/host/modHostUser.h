#pragma once

#include "platform/host/HostPath.h"

#include <string>

/// The user who runs the program. None of the folders is created here.
namespace dorvik::modHostUser {

/// The name under which the user is logged on; empty if the system does not know it.
std::string LogonName();
/// The folder for what programs keep of themselves between two runs.
HostPath StateFolder();
HostPath TemporaryFolder();
/// The folder for the settings of the user's programs.
HostPath ConfigurationFolder();
/// The folder for the settings that an administrator makes for all users.
HostPath MachineConfigurationFolder();

}  // namespace dorvik::modHostUser
