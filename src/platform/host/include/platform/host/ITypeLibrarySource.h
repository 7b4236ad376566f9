#pragma once

#include "platform/host/ITypeLibraries.h"

#include <memory>
#include <string_view>

namespace dorvik {

/// Hands each project the type libraries that it can refer to. Lives as long as the reviews that use
/// it, and remembers what it has read, so that a batch of projects reads it once.
class ITypeLibrarySource {
public:
    virtual ~ITypeLibrarySource() = default;

    /// The libraries for a project in that folder, which may hold some of its own. Never null.
    /// REQUIRES: the source outlives the result.
    virtual std::unique_ptr<ITypeLibraries> ForProject(std::string_view projectFolder) = 0;
};

}  // namespace dorvik
