#pragma once

#include "cli/output/ExitCode.h"
#include "platform/host/modEncoding.h"

#include <string>

namespace dorvik {

struct EventsOptions {
    std::string Path;
    int CodePage = modEncoding::kDefaultCodePage;
    bool KeepKnownFaults = false;  // see `ReviewCriteria::KeepsKnownFaults`
};

/// Prints the event stream of a project, without rules and without results.
ExitCode RunEvents(const EventsOptions& options);

}  // namespace dorvik
