#pragma once

#include "platform/host/HostPath.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace dorvik {

/// The names in one folder of the host at one moment, found without regard to case.
class FolderNames {
public:
    /// Reads the folder; a folder that cannot be read has no names. Names that are not UTF-8 are
    /// known by what they read as in `codePage`.
    FolderNames(const HostPath& folder, int codePage);

    /// The names on disk that equal `name` in any case, in byte order; null where there is none.
    const std::vector<std::string>* Matching(std::string_view name) const;

    /// False if the folder may hold other names by now.
    bool IsUpToDate() const;

private:
    /// What the host reports of a folder, to notice a change.
    struct Version {
        std::uint64_t Device = 0;
        std::uint64_t Number = 0;
        std::int64_t Changed = 0;  // nanoseconds since 1970; 0 where the folder cannot be queried

        friend bool operator==(const Version&, const Version&) = default;
    };
    static Version VersionOf(const HostPath& folder);

    HostPath m_folder;
    Version m_version;
    bool m_isSettled = false;
    std::unordered_map<std::string, std::vector<std::string>> m_names;  // by lower-case name
};

}  // namespace dorvik
