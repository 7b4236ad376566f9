#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// A file that may hold type libraries.
struct TypeLibraryCandidate {
    std::string Path;
    std::int64_t Size = 0;      // bytes
    std::int64_t Modified = 0;  // nanoseconds since 1970
};

/// How far a traversal goes. A project may be in a folder that holds half of the machine, and a review must
/// not traverse that; what is beyond a limit is skipped.
struct TypeLibraryFolderLimits {
    std::int32_t Depth = 8;         // folders below the folder
    std::int32_t Entries = 20'000;  // files and folders looked at, of whatever kind
};

struct TypeLibraryFolderFiles {
    std::vector<TypeLibraryCandidate> Files;
    bool IsCut = false;  // the number of entries ended the walk
};

namespace modTypeLibraryFolder {

/// Whether the name ends in ".tlb", ".olb", ".dll", ".ocx" or ".exe", in any case.
bool IsCandidate(std::string_view name);

/// The candidates in the folder and below, a folder's own files before those below it, each level in the
/// order of the names. Hidden folders below it are skipped, links to folders are followed once.
/// A path that names a file gives that file. Nothing for a path that names nothing.
TypeLibraryFolderFiles
FilesBelow(std::string_view folder, const TypeLibraryFolderLimits& limits = {});

}  // namespace modTypeLibraryFolder

}  // namespace dorvik
