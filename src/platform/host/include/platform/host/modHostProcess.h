#pragma once

#include "platform/host/HostPath.h"

#include <string>

/// The running program and others.
namespace dorvik::modHostProcess {

/// The file of the running program. Raises 76 where the system does not know it.
HostPath ProgramPath();
/// The number by which the system knows this process.
int OwnNumber();
/// False as well for a process of another user.
bool IsGone(int process);
/// A variable of the environment; empty if there is none.
std::string Environment(const char* name);

}  // namespace dorvik::modHostProcess
