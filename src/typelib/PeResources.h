#pragma once

#include "ByteView.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// A resource of a program: its number, its language (LCID) and where its bytes are.
struct PeResource {
    std::int32_t Number = 0;
    std::uint32_t Language = 0;
    std::uint64_t Start = 0;  // in the file
    std::uint64_t Size = 0;
};

/// Finds resources in a 32-bit or 64-bit program of Windows (the PE format), by the layout that its
/// maker publishes: a header that leads to sections, and in one of them a tree of three levels, for
/// the types, the numbers and the languages. Resources that have a name instead of a number are
/// skipped. REQUIRES: the bytes of the file outlive the object.
class PeResources {
public:
    enum class FileKind { NoProgram, DosProgram, WindowsProgram16Bit, OtherProgram, Pe };

    /// Raises `kInvalidFileFormat` for a program that is cut off.
    static FileKind KindOf(const ByteView& file);

    /// Raises `kInvalidFileFormat` if the headers are damaged. REQUIRES: `KindOf` gives `Pe`.
    explicit PeResources(const ByteView& file);

    /// The resources of a type that has a name, by number, then language. What is damaged among
    /// them is left out and reported in `faults`.
    std::vector<PeResource> OfType(std::string_view typeName, std::vector<std::string>& faults);

private:
    struct Section {
        std::uint32_t Address;  // in memory
        std::uint32_t Start;    // in the file
        std::uint32_t Size;
    };
    struct Entry {
        std::uint32_t Name;  // a number, or where the name is
        std::uint32_t Target;
    };

    void ReadSections(std::uint64_t start, std::uint16_t count);
    const Section& SectionAt(std::uint32_t address, std::uint64_t asker) const;
    std::vector<Entry> Entries(std::uint32_t directory);
    bool IsNamed(const Entry& entry, std::string_view name) const;
    void
    AddNumbers(const Entry& type, std::vector<PeResource>& found, std::vector<std::string>& faults);
    void AddLanguages(
        const Entry& number, std::vector<PeResource>& found, std::vector<std::string>& faults);
    PeResource ResourceAt(const Entry& language) const;

    ByteView m_file;
    std::vector<Section> m_sections;
    ByteView m_tree;  // empty for a program without resources
    std::uint64_t m_entriesRead = 0;
};

}  // namespace dorvik
