#include "platform/host/modHost.h"

#include "platform/host/modHostPath.h"
#include "platform/host/modHostProcess.h"
#include "platform/host/modHostUser.h"

#include <string_view>
#include <utility>

namespace dorvik::modHost {

namespace {

constexpr std::string_view kProgramName = "dorvik";

IClock* installedClock = nullptr;
IMessageBox* installedMessageBox = nullptr;
IHostInput* installedHostInput = nullptr;
const HostFacts* installedFacts = nullptr;

std::string InsidePath(const HostPath& folder) {
    std::string path = modHostPath::ToProgram(folder);
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
    return ExactNow().Time;
}

LocalTime ExactNow() {
    return installedClock != nullptr ? LocalTime{installedClock->Now()} : modHostClock::Now();
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
    return installed != nullptr ? *installed : modHostUser::LogonName();
}

std::string ProgramFolder() {
    if (const std::string* installed = InstalledFact(&HostFacts::ProgramFolder)) {
        return *installed;
    }
    return InsidePath(modHostProcess::ProgramPath().Folder());
}

std::string UserDataFolder() {
    if (const std::string* installed = InstalledFact(&HostFacts::UserDataFolder)) {
        return *installed;
    }
    return InsidePath(modHostUser::StateFolder() / kProgramName);
}

std::string TemporaryFolder() {
    if (const std::string* installed = InstalledFact(&HostFacts::TemporaryFolder)) {
        return *installed;
    }
    return InsidePath(modHostUser::TemporaryFolder());
}

std::string UserConfigurationFolder() {
    if (const std::string* installed = InstalledFact(&HostFacts::UserConfigurationFolder)) {
        return *installed;
    }
    return InsidePath(modHostUser::ConfigurationFolder() / kProgramName);
}

std::string MachineConfigurationFolder() {
    if (const std::string* installed = InstalledFact(&HostFacts::MachineConfigurationFolder)) {
        return *installed;
    }
    return InsidePath(modHostUser::MachineConfigurationFolder() / kProgramName);
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
