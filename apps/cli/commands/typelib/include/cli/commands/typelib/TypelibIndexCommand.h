#pragma once

#include "cli/output/ExitCode.h"

#include <string>

namespace dorvik {

/// `dorvik typelib index DIR`: the type libraries that a review would find there. Brings the kept index
/// up to date on the way.
struct TypelibIndexOptions {
    std::string Folder;
    bool Json = false;
};

/// `Incomplete` if a library is damaged, or the folder holds more than is looked at.
ExitCode RunTypelibIndex(const TypelibIndexOptions& options);

}  // namespace dorvik
