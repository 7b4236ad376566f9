#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// What the review wants to know of a type library: its name and the names of its types.
struct TypeLibraryContents {
    struct TypeEntry {
        std::string Name;
        std::int32_t
            Kind;  // as TYPEKIND of OLE Automation: 0 enumeration, 1 record, 3 interface, 5 class ...
    };
    std::string Name;
    std::vector<TypeEntry> Types;
};

/// Where type libraries are found. A machine without any has no such object, and every library is
/// then one that cannot be loaded.
class ITypeLibraries {
public:
    virtual ~ITypeLibraries() = default;

    /// The library registered under that GUID and version; nothing if it cannot be had.
    virtual std::optional<TypeLibraryContents> Open(
        std::string_view guid,
        std::int32_t majorVersion,
        std::int32_t minorVersion,
        std::int32_t lcid) const = 0;
};

}  // namespace dorvik
