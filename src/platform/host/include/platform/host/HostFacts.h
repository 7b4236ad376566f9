#pragma once

#include <string>

namespace dorvik {

/// Values used in place of those of the machine. An empty field means "query the machine".
/// The folders are inside paths with a trailing backslash.
struct HostFacts {
    std::string LogonName = {};
    std::string ProgramFolder = {};
    std::string UserDataFolder = {};
    std::string TemporaryFolder = {};
    std::string UserConfigurationFolder = {};
    std::string MachineConfigurationFolder = {};
};

}  // namespace dorvik
