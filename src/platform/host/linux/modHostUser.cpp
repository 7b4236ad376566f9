#include "platform/host/modHostUser.h"

#include "platform/host/modHostProcess.h"

#include <cstddef>
#include <filesystem>
#include <pwd.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace dorvik::modHostUser {

namespace {

constexpr std::size_t kLongestUserEntry = 64 * 1024;  // bytes

/// The wanted field of the user's entry in the system's list of users; empty if there is none.
std::string UserEntry(char* passwd::*field) {
    std::vector<char> buffer(kLongestUserEntry);
    passwd entry{};
    passwd* found = nullptr;
    getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found);
    return found == nullptr || found->*field == nullptr ? std::string()
                                                        : std::string(found->*field);
}

/// A folder from the environment; empty unless it is a whole path.
HostPath EnvironmentFolder(const char* name) {
    const std::string folder = modHostProcess::Environment(name);
    return folder.starts_with('/') ? HostPath::FromBytes(folder) : HostPath();
}

HostPath HomeFolder() {
    HostPath home = EnvironmentFolder("HOME");
    return home.IsEmpty() ? HostPath::FromBytes(UserEntry(&passwd::pw_dir)) : home;
}

}  // namespace

std::string LogonName() {
    return UserEntry(&passwd::pw_name);
}

HostPath StateFolder() {
    HostPath state = EnvironmentFolder("XDG_STATE_HOME");
    return state.IsEmpty() ? HomeFolder() / ".local" / "state" : state;
}

HostPath TemporaryFolder() {
    std::error_code fault;
    const std::filesystem::path folder = std::filesystem::temp_directory_path(fault);
    return HostPath::FromBytes(fault ? "/tmp" : folder.native());
}

HostPath ConfigurationFolder() {
    HostPath configuration = EnvironmentFolder("XDG_CONFIG_HOME");
    return configuration.IsEmpty() ? HomeFolder() / ".config" : configuration;
}

HostPath MachineConfigurationFolder() {
    return HostPath::FromBytes("/etc");
}

}  // namespace dorvik::modHostUser
