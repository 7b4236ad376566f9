#pragma once

#include "ByteView.h"
#include "typelib/TypeLibraryFacts.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// Reads a type library of the older format, which begins with "SLTG".
///
/// The numbers in here come from public descriptions of the format and from looking at files:
///
///     header       36 bytes: number of blocks, first block
///     blocks       length, name and successor of each block, 8 bytes each
///     names        13 bytes, then 11 for each type, then 9: names of blocks
///     data         the blocks in the order of their chain; the last is that of the library
///
/// The block of the library gives help text, locale, version and GUID, then the types in their
/// order, each with its kind, then a table of names. A text is its length and its bytes; the length
/// 0xFFFF is none. The blocks of the types are not needed here.
class SltgReader {
public:
    /// Whether this is a library of the format, intact or not.
    static bool Knows(const ByteView& library) { return library.StartsWith("SLTG"); }

    /// Raises `kInvalidFileFormat` if the library's own block is not where it says.
    explicit SltgReader(const ByteView& library);

    /// Raises `kInvalidFileFormat` with the place of the first fault.
    TypeLibraryFacts Read();

private:
    void ReadLibrary(TypeLibraryFacts& facts);
    void ReadTypes(TypeLibraryFacts& facts);
    void ReadNames(TypeLibraryFacts& facts) const;
    ByteView Names() const;
    std::string Name(const ByteView& names, std::uint64_t offset) const;

    std::uint16_t NextWord();
    std::string_view NextText();
    void Skip(std::uint64_t size) { m_place += size; }

    ByteView m_block;                          // of the library
    std::uint64_t m_place = 0;                 // where in it reading continues
    std::vector<std::uint16_t> m_nameOffsets;  // of the types
    int m_codePage = 0;
};

}  // namespace dorvik
