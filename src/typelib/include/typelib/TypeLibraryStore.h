#pragma once

#include "platform/host/ITypeLibrarySource.h"
#include "typelib/TypeCatalogue.h"
#include "typelib/TypeLibraryIndex.h"

#include <optional>
#include <string>
#include <vector>

namespace dorvik {

/// Where type libraries are looked for. Paths are the program's own.
struct TypeLibraryPlaces {
    std::vector<std::string> Folders;           // searched in this order, a project's own last
    std::vector<std::string> CatalogueFolders;  // a later one wins
    std::string IndexFile;                      // empty: the index is not kept
};

/// Everything that is known of type libraries on this machine: one index of the files and one catalogue,
/// shared by all projects of a review. The catalogue is read when something is first asked of it.
class TypeLibraryStore final : public ITypeLibrarySource {
public:
    explicit TypeLibraryStore(TypeLibraryPlaces places);

    std::unique_ptr<ITypeLibraries> ForProject(std::string_view projectFolder) override;

    TypeLibraryIndex& Index() { return m_index; }
    const std::vector<std::string>& Folders() const { return m_places.Folders; }
    const TypeCatalogue& Catalogue();
    /// The catalogue if it has been queried at all.
    const TypeCatalogue* LoadedCatalogue() const { return m_catalogue ? &*m_catalogue : nullptr; }

private:
    TypeLibraryPlaces m_places;
    TypeLibraryIndex m_index;
    std::optional<TypeCatalogue> m_catalogue;
};

}  // namespace dorvik
