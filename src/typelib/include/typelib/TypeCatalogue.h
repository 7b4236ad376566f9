#pragma once

#include "typelib/TypeLibraryFacts.h"
#include "typelib/modTypeLibraryChoice.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class TypeCatalogueReader;

/// A line of the catalogue that could not be understood.
struct TypeCatalogueFault {
    std::string File;      // of the catalogue, as the program names it
    std::size_t Line = 0;  // 1-based
    std::string What;      // what is wrong, as the end of a sentence
};

/// A library as the catalogue describes it, in one version.
struct CatalogueLibrary {
    /// Another library of the catalogue, whose types this one has too.
    struct Lender {
        std::string Guid;
        std::int32_t MajorVersion = 0;
        std::int32_t MinorVersion = 0;
        std::size_t Line = 0;  // of the catalogue file; 0 means that there is none
    };

    TypeLibraryFacts Facts;
    Lender TypesAs;        // until its types are here
    std::string Filename;  // of the library, as project files write it; may be empty
    std::string Source;    // where the facts come from
    std::string Note;
    std::string CatalogueFile;  // the file of the catalogue that describes it
};

/// What is known of well-known type libraries where none of their files is at hand: a folder of text
/// files. `docs/type-libraries.md` describes their format.
///
/// A line that cannot be understood costs only itself, and `Faults` reports it. A library that is described
/// again, with the same GUID, version and language, replaces the one before: so a folder of the user's own,
/// read last, wins.
class TypeCatalogue {
public:
    /// Reads the files "*.txt" in the folder, in the order of their names. A folder that does not exist
    /// holds none.
    void ReadFolder(std::string_view folder);
    void ReadFile(std::string_view path);
    /// Reads the text of a catalogue file; `name` is what the faults call it.
    void ReadText(std::string_view text, std::string_view name);

    /// In the order of reading.
    const std::vector<CatalogueLibrary>& Libraries() const { return m_libraries; }
    const std::vector<TypeCatalogueFault>& Faults() const { return m_faults; }

    /// The library that answers the request: one whose types are known, of that minor version or else of
    /// the nearest one. Null where there is none. Valid until the next reading.
    const CatalogueLibrary* Find(const TypeLibraryRequest& request) const;

private:
    void TakeAll(TypeCatalogueReader& reader);
    void Take(CatalogueLibrary library);
    void LendTypes();
    bool Borrow(CatalogueLibrary& library);

    std::vector<CatalogueLibrary> m_libraries;
    std::vector<TypeCatalogueFault> m_faults;
};

}  // namespace dorvik
