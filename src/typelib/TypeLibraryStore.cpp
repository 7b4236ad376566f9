#include "typelib/TypeLibraryStore.h"

#include "TypeLibraries.h"

#include <utility>

namespace dorvik {

TypeLibraryStore::TypeLibraryStore(TypeLibraryPlaces places)
    : m_places(std::move(places)), m_index(m_places.IndexFile) {}

std::unique_ptr<ITypeLibraries> TypeLibraryStore::ForProject(std::string_view projectFolder) {
    std::vector<std::string> folders = m_places.Folders;
    if (!projectFolder.empty()) {
        folders.emplace_back(projectFolder);
    }
    return std::make_unique<TypeLibraries>(
        m_index, std::move(folders), [this]() -> const TypeCatalogue& { return Catalogue(); });
}

const TypeCatalogue& TypeLibraryStore::Catalogue() {
    if (!m_catalogue) {
        m_catalogue.emplace();
        for (const std::string& folder : m_places.CatalogueFolders) {
            m_catalogue->ReadFolder(folder);
        }
    }
    return *m_catalogue;
}

}  // namespace dorvik
