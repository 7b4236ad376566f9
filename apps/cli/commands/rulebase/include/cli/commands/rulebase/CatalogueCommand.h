#pragma once

#include "cli/output/ExitCode.h"

#include <string>

namespace dorvik {

/// `dorvik catalogue [PART]`: what a rule can talk about.
struct CatalogueOptions {
    std::string Part;  // "objects", "properties", "events" or "scope"; empty for all
    bool Json = false;
};

ExitCode RunCatalogue(const CatalogueOptions& options);

}  // namespace dorvik
