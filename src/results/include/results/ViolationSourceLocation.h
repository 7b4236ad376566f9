#pragma once

#include <string>

namespace dorvik {

/// The project and the source file of a violation, by name or by file name.
struct ViolationSourceLocation {
    std::string Project;
    std::string File;  // empty for a violation of the project itself

    friend bool
    operator==(const ViolationSourceLocation&, const ViolationSourceLocation&) = default;
};

}  // namespace dorvik
