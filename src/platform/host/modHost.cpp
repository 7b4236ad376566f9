#include "platform/host/modHost.h"

#include "base/BasicError.h"
#include "platform/host/modFiles.h"

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <pwd.h>
#include <string_view>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

namespace dorvik::modHost {

namespace {

constexpr std::string_view kProgramName = "dorvik";
constexpr const char* kOwnProgram = "/proc/self/exe";  // a link to the running program
constexpr std::size_t kLongestUserEntry = 64 * 1024;   // bytes

IClock* installedClock = nullptr;
IMessageBox* installedMessageBox = nullptr;
IHostInput* installedHostInput = nullptr;
const HostFacts* installedFacts = nullptr;

DateTime MachineTime() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return {
        local.tm_year + 1900,
        local.tm_mon + 1,
        local.tm_mday,
        local.tm_hour,
        local.tm_min,
        local.tm_sec};
}

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
std::filesystem::path EnvironmentFolder(const char* name) {
    const char* value = std::getenv(name);
    std::filesystem::path folder(value == nullptr ? "" : value);
    return folder.is_absolute() ? folder : std::filesystem::path();
}

std::filesystem::path StateFolder() {
    if (std::filesystem::path state = EnvironmentFolder("XDG_STATE_HOME"); !state.empty()) {
        return state;
    }
    std::filesystem::path home = EnvironmentFolder("HOME");
    if (home.empty()) {
        home = UserEntry(&passwd::pw_dir);
    }
    return home / ".local" / "state";
}

std::string InsidePath(const std::filesystem::path& folder) {
    std::string path = modFiles::FromHostPath(folder);
    if (!path.ends_with('\\')) {
        path += '\\';
    }
    return path;
}

/// The installed answer, or null if the machine is to be queried.
const std::string* InstalledFact(std::string HostFacts::*field) {
    const bool isThere = installedFacts != nullptr && !(installedFacts->*field).empty();
    return isThere ? &(installedFacts->*field) : nullptr;
}

}  // namespace

DateTime Now() {
    return installedClock != nullptr ? installedClock->Now() : MachineTime();
}

void YieldToInput() {
    if (installedHostInput != nullptr && installedHostInput->InputIsWaiting()) {
        installedHostInput->ProcessInput();
    }
}

MessageAnswer ShowMessage(const MessageText& message) {
    return installedMessageBox != nullptr ? installedMessageBox->Show(message)
                                          : Refusal(message.Buttons);
}

std::string LogonName() {
    const std::string* installed = InstalledFact(&HostFacts::LogonName);
    return installed != nullptr ? *installed : UserEntry(&passwd::pw_name);
}

std::string ProgramFolder() {
    if (const std::string* installed = InstalledFact(&HostFacts::ProgramFolder)) {
        return *installed;
    }
    std::error_code fault;
    const std::filesystem::path program = std::filesystem::read_symlink(kOwnProgram, fault);
    if (fault) {
        RaiseRuntimeError(runtimeerror::kPathNotFound, kOwnProgram);
    }
    return InsidePath(program.parent_path());
}

std::string UserDataFolder() {
    if (const std::string* installed = InstalledFact(&HostFacts::UserDataFolder)) {
        return *installed;
    }
    return InsidePath(StateFolder() / kProgramName);
}

std::string TemporaryFolder() {
    if (const std::string* installed = InstalledFact(&HostFacts::TemporaryFolder)) {
        return *installed;
    }
    std::error_code fault;
    const std::filesystem::path folder = std::filesystem::temp_directory_path(fault);
    return InsidePath(fault ? std::filesystem::path("/tmp") : folder);
}

IClock* Install(IClock* clock) {
    return std::exchange(installedClock, clock);
}

IMessageBox* Install(IMessageBox* messageBox) {
    return std::exchange(installedMessageBox, messageBox);
}

IHostInput* Install(IHostInput* hostInput) {
    return std::exchange(installedHostInput, hostInput);
}

const HostFacts* Install(const HostFacts* facts) {
    return std::exchange(installedFacts, facts);
}

}  // namespace dorvik::modHost
