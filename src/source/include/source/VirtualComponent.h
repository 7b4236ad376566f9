#pragma once

#include <cstdint>
#include <string>

namespace dorvik {

/// One `Object=` line of a project file. `AuthorisedVersions` and `IsAuthorised` stay empty until
/// the authorisation scan fills them.
struct VirtualComponent {
    std::string AuthorisedVersions;
    bool IsAuthorised = false;
    /// The line names a file of the design environment and no type library: no GUID, no version.
    bool DesignTime = false;
    std::string Version;
    std::string GUID;  // with its braces
    std::string Filename;
    std::int32_t LCID = 0;
};

}  // namespace dorvik
