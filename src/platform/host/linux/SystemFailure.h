#pragma once

#include "platform/host/HostFailure.h"
#include "platform/host/HostPath.h"

/// From the system's error numbers (`errno`) to kinds of failure.
namespace dorvik::modSystemFailure {

/// Of a file at `path`: where it is missing, its folder may be missing too.
HostFailure OfFile(int number, const HostPath& path);
/// Of a folder, or of something in it where only the folder can be missing.
HostFailure OfFolder(int number);
/// The system's own words for the number.
std::string Words(int number);

}  // namespace dorvik::modSystemFailure
