#pragma once

#include <string>

namespace dorvik {

/// Answers that stand in for those of the machine. An empty field means "ask the machine".
/// The folders are inside paths with a trailing backslash.
struct HostFacts {
    std::string LogonName;
    std::string ProgramFolder;
    std::string UserDataFolder;
    std::string TemporaryFolder;
};

}  // namespace dorvik
