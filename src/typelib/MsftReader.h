#pragma once

#include "ByteView.h"
#include "typelib/TypeLibraryFacts.h"

#include <cstdint>
#include <string>

namespace dorvik {

/// Reads a type library of the format that begins with "MSFT", the usual one since 1995.
///
/// The numbers in here come from public descriptions of the format and from looking at files:
///
///     header       84 bytes: offset of the GUID, locales, version, number of types, offsets of
///                  the help text and of the name; 4 bytes more if bit 8 of the flags is set
///     types        the offset of each type in the table of types
///     directory    offset and length of 15 tables, 16 bytes each
///     tables       types (100 bytes each), ..., GUIDs, ..., names, texts, ...
///
/// Offsets in a table count from the table's start; 0xFFFFFFFF is none.
class MsftReader {
public:
    /// Whether this is a library of the format, intact or not.
    static bool Knows(const ByteView& library) { return library.StartsWith("MSFT"); }

    /// Raises `kInvalidFileFormat` if the tables of the library are not where it says.
    explicit MsftReader(const ByteView& library);

    /// Raises `kInvalidFileFormat` with the place of the first fault.
    TypeLibraryFacts Read() const;

private:
    ByteView Table(std::uint64_t number, std::string_view name) const;
    TypeLibraryContents::TypeEntry Type(std::uint64_t number) const;
    std::string Name(std::uint32_t offset) const;
    std::string Text(std::uint32_t offset) const;

    ByteView m_library;
    std::uint64_t m_typeCount = 0;
    std::uint64_t m_typeOffsets = 0;  // where the list of types begins
    ByteView m_types;
    ByteView m_guids;
    ByteView m_names;
    ByteView m_texts;
    int m_codePage = 0;
};

}  // namespace dorvik
