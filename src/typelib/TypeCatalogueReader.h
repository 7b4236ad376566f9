#pragma once

#include "typelib/TypeCatalogue.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace dorvik {

/// Reads one text of the type catalogue. A reader serves one text.
///
/// A line is a word and what it says of the library that the last "library" line began. Blanks and
/// tabs before and between do not matter; empty lines and those that begin with "#" say nothing.
class TypeCatalogueReader {
public:
    /// `name` is what the libraries and the faults call the text. REQUIRES: it outlives the reader.
    explicit TypeCatalogueReader(std::string_view name) : m_name(name) {}

    void Read(std::string_view text);

    /// Each version of a library on its own.
    std::vector<CatalogueLibrary>& Libraries() { return m_libraries; }
    std::vector<TypeCatalogueFault>& Faults() { return m_faults; }

private:
    struct Version {
        std::int32_t Major = 0;
        std::int32_t Minor = 0;
    };
    /// The library that is being read, its versions still together.
    struct Draft {
        CatalogueLibrary Library;
        std::vector<Version> Versions;
        std::size_t Line = 0;                   // of the word "library"; 0 before the first one
        std::unordered_set<std::string> Names;  // of its types, in lower case
    };
    using TakeLine = void (TypeCatalogueReader::*)(std::string_view rest);
    struct WordRow;
    static const WordRow kWords[];

    void ReadLine(std::string_view line);
    bool TakeFact(std::string_view word, std::string_view rest);
    bool TakeTypes(std::string_view word, std::string_view names);
    void TakeLibrary(std::string_view rest);
    void TakeGuid(std::string_view rest);
    void TakeVersions(std::string_view rest);
    void TakeLanguage(std::string_view rest);
    void TakeFilename(std::string_view rest);
    void TakeDescription(std::string_view rest);
    void TakeSource(std::string_view rest);
    void TakeNote(std::string_view rest);
    void TakeTypesAs(std::string_view rest);
    void AddType(std::string_view name, std::int32_t kind);
    /// Hands the library that was being read over, if enough is known of it.
    void Finish();
    void Complain(std::size_t line, const std::string& what);

    static bool ReadVersion(std::string_view text, Version& version);

    std::string_view m_name;
    std::vector<CatalogueLibrary> m_libraries;
    std::vector<TypeCatalogueFault> m_faults;
    Draft m_draft;
    std::size_t m_line = 0;  // 1-based
};

}  // namespace dorvik
