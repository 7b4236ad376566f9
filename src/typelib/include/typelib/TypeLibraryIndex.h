#pragma once

#include "typelib/TypeLibraryIndexFile.h"
#include "typelib/modTypeLibraryChoice.h"
#include "typelib/modTypeLibraryFolder.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// A library that is damaged.
struct TypeLibraryFault {
    std::string Path;  // of the file
    std::string What;  // a sentence that names file and place
};

/// What a look through a folder gave.
struct TypeLibraryFolderListing {
    std::vector<IndexedTypeLibrary> Libraries;
    std::vector<TypeLibraryFault> Faults;
    std::size_t FileCount = 0;  // files that were looked at
    bool IsCut = false;         // the folder holds more than a walk looks at
};

/// Knows which type libraries are in which folders. A file is read once; what it holds is kept in an
/// index file between runs, and the file is read again only when its size or time changes. Each folder
/// is traversed once in the life of this object.
class TypeLibraryIndex {
public:
    /// `indexFile` is where the index is kept; empty for nowhere. One that cannot be read or written
    /// costs time only.
    explicit TypeLibraryIndex(std::string_view indexFile, TypeLibraryFolderLimits limits = {});

    /// The libraries in the folder and below.
    const TypeLibraryFolderListing& LibrariesIn(std::string_view folder);

    /// The library in the folders that answers the request; a folder before another wins between equals.
    /// Null where there is none. Valid as long as this object.
    const IndexedTypeLibrary*
    Find(const std::vector<std::string>& folders, const TypeLibraryRequest& request);

private:
    TypeLibraryFolderListing Scan(std::string_view folder);
    const IndexedTypeLibraryFile& FileOf(const TypeLibraryCandidate& candidate);

    TypeLibraryFolderLimits m_limits;
    TypeLibraryIndexFile m_file;
    std::map<std::string, TypeLibraryFolderListing, std::less<>> m_folders;
};

}  // namespace dorvik
