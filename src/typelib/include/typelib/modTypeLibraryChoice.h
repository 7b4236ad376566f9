#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace dorvik {

/// The library that is requested.
struct TypeLibraryRequest {
    std::string_view Guid;  // compared without regard to case
    std::int32_t MajorVersion = 0;
    std::int32_t MinorVersion = 0;
    std::int32_t Lcid = 0;
};

/// A library that there is, as far as the choice goes.
struct AvailableTypeLibrary {
    std::string_view Guid;
    std::int32_t MajorVersion = 0;
    std::int32_t MinorVersion = 0;
    std::int32_t Lcid = 0;
};

/// Which of several libraries answers a request. The major version is always the one requested. The minor
/// version is decided first, the language within it: the very one, then the neutral form of its
/// primary language, then no language, then any. Of equals the first one answers.
namespace modTypeLibraryChoice {

/// The position of the library that answers as a registered one does: the minor version requested, or
/// the highest one above it.
std::optional<std::size_t>
Registered(const std::vector<AvailableTypeLibrary>& candidates, const TypeLibraryRequest& request);

/// As above, but any minor version will do: the one requested, the nearest above it, the nearest below.
std::optional<std::size_t>
Nearest(const std::vector<AvailableTypeLibrary>& candidates, const TypeLibraryRequest& request);

}  // namespace modTypeLibraryChoice

}  // namespace dorvik
