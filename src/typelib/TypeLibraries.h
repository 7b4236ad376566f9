#pragma once

#include "platform/host/ITypeLibraries.h"
#include "typelib/TypeCatalogue.h"
#include "typelib/TypeLibraryIndex.h"

#include <functional>
#include <string>
#include <vector>

namespace dorvik {

/// The type libraries for one project: those in files on its search path, and after them the catalogue
/// of the well-known ones.
class TypeLibraries final : public ITypeLibraries {
public:
    using CatalogueGetter = std::function<const TypeCatalogue&()>;

    /// `catalogue` is queried only when no file has the library. REQUIRES: the index, and what the getter uses,
    /// outlive this object.
    TypeLibraries(
        TypeLibraryIndex& index, std::vector<std::string> folders, CatalogueGetter catalogue);

    std::optional<TypeLibraryContents> Open(
        std::string_view guid,
        std::int32_t majorVersion,
        std::int32_t minorVersion,
        std::int32_t lcid) const override;

private:
    TypeLibraryIndex& m_index;
    std::vector<std::string> m_folders;
    CatalogueGetter m_catalogue;
};

}  // namespace dorvik
