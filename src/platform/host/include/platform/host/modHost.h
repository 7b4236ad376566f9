#pragma once

#include "base/DateTime.h"
#include "platform/host/HostFacts.h"
#include "platform/host/IClock.h"
#include "platform/host/IHostInput.h"
#include "platform/host/IMessageBox.h"
#include "platform/host/modHostClock.h"

#include <string>

/// What the program queries of the machine and of its user. A front end of the program,
/// or a test, replaces an answer by installing its own object for it.
namespace dorvik::modHost {

/// The local time, to the second.
DateTime Now();
/// The same with what has passed of the second, which an installed clock does not have.
LocalTime ExactNow();

/// Lets waiting user input be processed. Costs next to nothing while no input handler is installed.
void YieldToInput();

/// Shows a message box and gives back what was answered. While none is installed, nothing is shown and
/// the answer is the one that agrees to nothing.
MessageAnswer ShowMessage(const MessageText& message);

/// The name under which the user is logged on; empty if the system does not know it.
std::string LogonName();

/// The folders below are inside paths with a trailing backslash. None of them is created here.
/// The folder of the running program.
std::string ProgramFolder();
/// The folder of the user's own log and data files: "dorvik" in the state folder of the user.
std::string UserDataFolder();
std::string TemporaryFolder();
/// "dorvik" in the folder of the user's configuration, and in that of the machine's.
std::string UserConfigurationFolder();
std::string MachineConfigurationFolder();

/// Installs an object and gives back the one before it; null takes the system's own answer.
/// REQUIRES: the object outlives its installation. `ScopedInstall` takes care of that.
IClock* Install(IClock* clock);
IMessageBox* Install(IMessageBox* messageBox);
IHostInput* Install(IHostInput* hostInput);
const HostFacts* Install(const HostFacts* facts);

}  // namespace dorvik::modHost
