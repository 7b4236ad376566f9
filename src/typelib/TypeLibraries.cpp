#include "TypeLibraries.h"

#include "typelib/modTypeLibraryFile.h"

#include <algorithm>
#include <utility>

namespace dorvik {

namespace {

/// What the file holds now; nothing if it has changed under us into something else.
std::optional<TypeLibraryContents> ContentsOf(const IndexedTypeLibrary& library) {
    TypeLibraryFile file = modTypeLibraryFile::Read(library.Path, library.Number);
    const auto same =
        std::ranges::find_if(file.Libraries, [&](const NumberedTypeLibrary& candidate) {
            return candidate.Facts.Guid == library.Guid && candidate.Facts.Lcid == library.Lcid;
        });
    if (same == file.Libraries.end()) {
        return std::nullopt;
    }
    return std::move(same->Facts.Contents);
}

}  // namespace

TypeLibraries::TypeLibraries(
    TypeLibraryIndex& index, std::vector<std::string> folders, CatalogueGetter catalogue)
    : m_index(index), m_folders(std::move(folders)), m_catalogue(std::move(catalogue)) {}

std::optional<TypeLibraryContents> TypeLibraries::Open(
    std::string_view guid,
    std::int32_t majorVersion,
    std::int32_t minorVersion,
    std::int32_t lcid) const {
    const TypeLibraryRequest request{guid, majorVersion, minorVersion, lcid};
    if (const IndexedTypeLibrary* const found = m_index.Find(m_folders, request)) {
        if (auto contents = ContentsOf(*found)) {
            return contents;
        }
    }
    if (const CatalogueLibrary* const known = m_catalogue().Find(request)) {
        return known->Facts.Contents;
    }
    return std::nullopt;
}

}  // namespace dorvik
