#pragma once

#include "FolderNames.h"
#include "platform/host/HostPath.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace dorvik {

/// A path of the program cut into parts, "." and ".." parts taken off as text.
struct PathParts {
    bool IsAbsolute = false;
    bool EndsInSeparator = false;
    std::vector<std::string_view> Parts;  // a relative path may begin with ".." parts
};

/// Nothing for a path that cannot exist on this host: one with a drive letter or a NUL, a network
/// path, an empty one. REQUIRES: `path` outlives the result.
std::optional<PathParts> CutPath(std::string_view path);

/// Finds host paths without regard to case. Keeps the names of the folders that it has read, as long
/// as these stay unchanged; a project's files are mostly in a few folders.
class HostPathSearch {
public:
    /// The path as written if it exists; otherwise the first that equals it but for case, with the
    /// spelling as written preferred in each part; otherwise the part that is found nowhere, and all
    /// after it, as written.
    HostPath Find(const PathParts& path, int codePage);

private:
    bool Walk(const HostPath& folder, std::size_t index);
    std::vector<std::string> OtherSpellings(const HostPath& folder, std::string_view part);
    const FolderNames& NamesIn(const HostPath& folder);

    std::map<std::pair<HostPath, int>, FolderNames> m_folders;  // by host path and code page
    // The search under way.
    const PathParts* m_path = nullptr;
    int m_codePage = 0;
    std::size_t m_stepsLeft = 0;
    HostPath m_deepest;
    std::size_t m_deepestCount = 0;
};

}  // namespace dorvik
