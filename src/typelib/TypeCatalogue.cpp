#include "typelib/TypeCatalogue.h"

#include "TypeCatalogueReader.h"
#include "base/modTextCase.h"
#include "foundation/log/Trap.h"
#include "foundation/text/modUtilFunctions.h"
#include "platform/host/modFiles.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "TypeCatalogue";
constexpr std::string_view kExtension = ".txt";

AvailableTypeLibrary CandidateOf(const TypeLibraryFacts& facts) {
    return {facts.Guid, facts.MajorVersion, facts.MinorVersion, facts.Lcid};
}

}  // namespace

void TypeCatalogue::ReadFolder(std::string_view folder) {
    if (!modFiles::FolderExists(folder)) {
        return;
    }
    Trap({kModule, "ReadFolder"}, [&] {
        const std::string base = modUtilFunctions::AddBackslash(folder);
        for (const modFiles::FolderEntry& entry : modFiles::FolderEntries(folder)) {
            if (!entry.IsFolder && !entry.IsHidden &&
                modTextCase::EndsWith(entry.Name, kExtension)) {
                const std::string path = base + entry.Name;
                Trap({kModule, "ReadFolder"}, [&] {
                    TypeCatalogueReader reader(path);
                    reader.Read(modFiles::ReadBytes(path));
                    TakeAll(reader);
                });
            }
        }
    });
    LendTypes();
}

void TypeCatalogue::ReadFile(std::string_view path) {
    Trap({kModule, "ReadFile"}, [&] { ReadText(modFiles::ReadBytes(path), path); });
}

void TypeCatalogue::ReadText(std::string_view text, std::string_view name) {
    TypeCatalogueReader reader(name);
    reader.Read(text);
    TakeAll(reader);
    LendTypes();
}

void TypeCatalogue::TakeAll(TypeCatalogueReader& reader) {
    for (CatalogueLibrary& library : reader.Libraries()) {
        Take(std::move(library));
    }
    std::ranges::move(reader.Faults(), std::back_inserter(m_faults));
}

void TypeCatalogue::Take(CatalogueLibrary library) {
    const TypeLibraryFacts& facts = library.Facts;
    const auto same = std::ranges::find_if(m_libraries, [&](const CatalogueLibrary& other) {
        return other.Facts.MajorVersion == facts.MajorVersion &&
               other.Facts.MinorVersion == facts.MinorVersion && other.Facts.Lcid == facts.Lcid &&
               other.Facts.Guid == facts.Guid;
    });
    if (same == m_libraries.end()) {
        m_libraries.push_back(std::move(library));
    } else {
        *same = std::move(library);
    }
}

void TypeCatalogue::LendTypes() {
    // One that borrows may lend itself, so no one can be queried more often than there are libraries.
    std::size_t rounds = m_libraries.size();
    bool isMoving = true;
    while (isMoving && rounds-- > 0) {
        isMoving = false;
        for (CatalogueLibrary& library : m_libraries) {
            isMoving = (library.TypesAs.Line != 0 && Borrow(library)) || isMoving;
        }
    }
    for (CatalogueLibrary& library : m_libraries) {
        if (library.TypesAs.Line != 0) {
            m_faults.push_back(
                {library.CatalogueFile,
                 library.TypesAs.Line,
                 "no library of the catalogue has that GUID and version, and types of its own"});
            library.TypesAs = {};
        }
    }
}

bool TypeCatalogue::Borrow(CatalogueLibrary& library) {
    const CatalogueLibrary::Lender& wanted = library.TypesAs;
    const auto lender = std::ranges::find_if(m_libraries, [&](const CatalogueLibrary& other) {
        return other.Facts.Guid == wanted.Guid && other.TypesAs.Line == 0 &&
               !other.Facts.Contents.Types.empty() &&
               other.Facts.MajorVersion == wanted.MajorVersion &&
               other.Facts.MinorVersion == wanted.MinorVersion;
    });
    if (lender == m_libraries.end()) {
        return false;
    }
    auto& types = library.Facts.Contents.Types;
    std::unordered_set<std::string> names;
    for (const TypeLibraryContents::TypeEntry& type : types) {
        names.insert(modTextCase::ToLower(type.Name));
    }
    for (const TypeLibraryContents::TypeEntry& type : lender->Facts.Contents.Types) {
        if (names.insert(modTextCase::ToLower(type.Name)).second) {
            types.push_back(type);
        }
    }
    library.TypesAs = {};
    return true;
}

const CatalogueLibrary* TypeCatalogue::Find(const TypeLibraryRequest& request) const {
    std::vector<AvailableTypeLibrary> candidates;
    std::vector<const CatalogueLibrary*> libraries;
    for (const CatalogueLibrary& library : m_libraries) {
        if (!library.Facts.Contents.Types.empty()) {
            candidates.push_back(CandidateOf(library.Facts));
            libraries.push_back(&library);
        }
    }
    const auto chosen = modTypeLibraryChoice::Nearest(candidates, request);
    return chosen ? libraries[*chosen] : nullptr;
}

}  // namespace dorvik
