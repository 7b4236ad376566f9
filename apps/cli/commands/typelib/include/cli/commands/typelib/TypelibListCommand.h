#pragma once

#include "cli/output/ExitCode.h"

#include <string>
#include <vector>

namespace dorvik {

/// `dorvik typelib list FILE|GUID`: everything about the libraries in a file, or about those with a GUID
/// that are found in folders or known to the catalogue. A FILE that ends in ".txt" is one of the
/// catalogue's.
struct TypelibListOptions {
    std::string What;
    std::vector<std::string> Folders;  // of this machine
    bool Json = false;
};

/// `Incomplete` if something is damaged but there is something to show.
ExitCode RunTypelibList(const TypelibListOptions& options);

}  // namespace dorvik
