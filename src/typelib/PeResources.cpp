#include "PeResources.h"

#include "FaultList.h"

#include <algorithm>
#include <tuple>

namespace dorvik {

namespace {

// The headers; offsets in each.
constexpr std::uint64_t kNewHeaderField = 0x3C;  // of the DOS header
constexpr std::uint64_t kSectionCountField = 6;
constexpr std::uint64_t kOptionalSizeField = 20;
constexpr std::uint64_t kOptionalHeader = 24;
constexpr std::uint16_t kMark32 = 0x10B;  // begins the optional header
constexpr std::uint16_t kMark64 = 0x20B;
constexpr std::uint64_t kDirectories32 = 96;  // after their count
constexpr std::uint64_t kDirectories64 = 112;
constexpr std::uint32_t kResourceDirectory = 2;
constexpr std::uint64_t kDirectorySize = 8;

constexpr std::uint64_t kSectionSize = 40;
constexpr std::uint16_t kMostSections = 96;  // the loader of Windows takes no more

// The tree.
constexpr std::uint64_t kNamedCountField = 12;
constexpr std::uint64_t kNumberedCountField = 14;
constexpr std::uint64_t kFirstEntry = 16;
constexpr std::uint64_t kEntrySize = 8;
constexpr std::uint32_t kHighBit = 0x80000000;  // of a name: it is text; of a target: a directory
constexpr std::uint64_t kMostEntries = 20'000;  // of a file; a circle of directories ends here

char UpperCase(std::uint16_t character) {
    if (character > 0x7F) {
        return '\0';
    }
    const bool isLower = character >= 'a' && character <= 'z';
    return static_cast<char>(isLower ? character - 'a' + 'A' : character);
}

}  // namespace

PeResources::FileKind PeResources::KindOf(const ByteView& file) {
    if (!file.StartsWith("MZ")) {
        return FileKind::NoProgram;
    }
    const std::uint32_t start = file.DoubleWord(kNewHeaderField);
    if (start == 0) {
        return FileKind::DosProgram;
    }
    const std::string_view mark = file.Bytes(start, 4);
    if (mark == std::string_view("PE\0\0", 4)) {
        return FileKind::Pe;
    }
    return mark.starts_with("NE") ? FileKind::WindowsProgram16Bit : FileKind::OtherProgram;
}

PeResources::PeResources(const ByteView& file) : m_file(file) {
    const std::uint64_t header = file.DoubleWord(kNewHeaderField);
    const std::uint64_t optional = header + kOptionalHeader;
    const std::uint16_t mark = file.Word(optional);
    if (mark != kMark32 && mark != kMark64) {
        RaiseFormatError(
            "the program's header at offset " + HexText(file.FileOffset(optional)) +
            " has the unknown mark " + HexText(mark));
    }
    ReadSections(
        optional + file.Word(header + kOptionalSizeField), file.Word(header + kSectionCountField));
    const std::uint64_t directories =
        optional + (mark == kMark32 ? kDirectories32 : kDirectories64);
    if (file.DoubleWord(directories - 4) <= kResourceDirectory) {
        return;
    }
    const std::uint64_t field = directories + kResourceDirectory * kDirectorySize;
    const std::uint32_t address = file.DoubleWord(field);
    if (address != 0) {
        const Section& section = SectionAt(address, field);
        m_tree = file.Part(section.Start, section.Size, "the section of the resources")
                     .From(address - section.Address, "the tree of resources");
    }
}

std::vector<PeResource>
PeResources::OfType(std::string_view typeName, std::vector<std::string>& faults) {
    std::vector<PeResource> found;
    m_entriesRead = 0;
    if (m_tree.Size() == 0) {
        return found;
    }
    Attempt(faults, [&] {
        for (const Entry& type : Entries(0)) {
            if (IsNamed(type, typeName)) {
                AddNumbers(type, found, faults);
            }
        }
    });
    std::ranges::stable_sort(found, {}, [](const PeResource& resource) {
        return std::tuple(resource.Number, resource.Language);
    });
    return found;
}

void PeResources::ReadSections(std::uint64_t start, std::uint16_t count) {
    if (count > kMostSections) {
        RaiseFormatError(
            "the program's header declares " + std::to_string(count) + " sections before offset " +
            HexText(m_file.FileOffset(start)));
    }
    for (std::uint16_t number = 0; number < count; ++number) {
        const ByteView header =
            m_file.Part(start + number * kSectionSize, kSectionSize, "the list of sections");
        m_sections.push_back({header.DoubleWord(12), header.DoubleWord(20), header.DoubleWord(16)});
    }
}

const PeResources::Section&
PeResources::SectionAt(std::uint32_t address, std::uint64_t asker) const {
    const auto section = std::ranges::find_if(m_sections, [address](const Section& candidate) {
        return address >= candidate.Address && address - candidate.Address < candidate.Size;
    });
    if (section == m_sections.end()) {
        RaiseFormatError(
            "offset " + HexText(asker) + " leads to the address " + HexText(address) +
            ", which no section holds");
    }
    return *section;
}

std::vector<PeResources::Entry> PeResources::Entries(std::uint32_t directory) {
    const std::uint64_t start = directory;
    const std::uint64_t count = std::uint64_t{m_tree.Word(start + kNamedCountField)} +
                                m_tree.Word(start + kNumberedCountField);
    m_entriesRead += count;
    if (m_entriesRead > kMostEntries) {
        RaiseFormatError(
            "the tree of resources at offset " + HexText(m_tree.FileOffset(start)) +
            " has more than " + std::to_string(kMostEntries) + " entries");
    }
    const ByteView list =
        m_tree.Part(start + kFirstEntry, count * kEntrySize, "a directory of resources");
    std::vector<Entry> entries;
    entries.reserve(count);
    for (std::uint64_t number = 0; number < count; ++number) {
        const std::uint64_t entry = number * kEntrySize;
        entries.push_back({list.DoubleWord(entry), list.DoubleWord(entry + 4)});
    }
    return entries;
}

bool PeResources::IsNamed(const Entry& entry, std::string_view name) const {
    if ((entry.Name & kHighBit) == 0) {
        return false;
    }
    const std::uint64_t start = entry.Name & ~kHighBit;
    if (m_tree.Word(start) != name.size()) {
        return false;
    }
    for (std::size_t place = 0; place < name.size(); ++place) {
        if (UpperCase(m_tree.Word(start + 2 + 2 * place)) != name[place]) {
            return false;
        }
    }
    return true;
}

void PeResources::AddNumbers(
    const Entry& type, std::vector<PeResource>& found, std::vector<std::string>& faults) {
    if ((type.Target & kHighBit) == 0) {
        RaiseFormatError(
            "the tree of resources has no numbers at offset " +
            HexText(m_tree.FileOffset(type.Target)));
    }
    for (const Entry& number : Entries(type.Target & ~kHighBit)) {
        if ((number.Name & kHighBit) == 0) {
            Attempt(faults, [&] { AddLanguages(number, found, faults); });
        }
    }
}

void PeResources::AddLanguages(
    const Entry& number, std::vector<PeResource>& found, std::vector<std::string>& faults) {
    if ((number.Target & kHighBit) == 0) {
        RaiseFormatError(
            "the tree of resources has no languages at offset " +
            HexText(m_tree.FileOffset(number.Target)));
    }
    for (const Entry& language : Entries(number.Target & ~kHighBit)) {
        Attempt(faults, [&] {
            PeResource resource = ResourceAt(language);
            resource.Number = static_cast<std::int32_t>(number.Name);
            found.push_back(resource);
        });
    }
}

PeResource PeResources::ResourceAt(const Entry& language) const {
    if ((language.Target & kHighBit) != 0) {
        RaiseFormatError(
            "the tree of resources has a fourth level at offset " +
            HexText(m_tree.FileOffset(language.Target & ~kHighBit)));
    }
    const std::uint32_t address = m_tree.DoubleWord(language.Target);
    const std::uint32_t size = m_tree.DoubleWord(std::uint64_t{language.Target} + 4);
    const Section& section = SectionAt(address, m_tree.FileOffset(language.Target));
    const std::uint64_t start = std::uint64_t{section.Start} + (address - section.Address);
    m_file.Part(start, size, "a resource");
    return {0, language.Name, start, size};
}

}  // namespace dorvik
