#include "typelib/ProgramBuilder.h"

#include <algorithm>

namespace dorvik::test {

namespace {

constexpr std::uint32_t kResourceAddress = 0x2000;
constexpr std::size_t kSectionStart = 0x400;  // in the file
constexpr std::uint32_t kHighBit = 0x80000000;

/// A directory with as many entries, all zero, at the end of the section; its place.
std::size_t AppendDirectory(std::string& section, std::size_t named, std::size_t numbered) {
    const std::size_t start = section.size();
    section.append(16 + 8 * (named + numbered), '\0');
    PutWord(section, start + 12, static_cast<std::uint16_t>(named));
    PutWord(section, start + 14, static_cast<std::uint16_t>(numbered));
    return start;
}

std::uint32_t AppendName(std::string& section, std::string_view name) {
    const std::size_t start = section.size();
    section.append(2 + 2 * name.size(), '\0');
    PutWord(section, start, static_cast<std::uint16_t>(name.size()));
    for (std::size_t place = 0; place < name.size(); ++place) {
        section[start + 2 + 2 * place] = name[place];
    }
    return static_cast<std::uint32_t>(start) | kHighBit;
}

std::uint32_t Offset(std::size_t place) {
    return static_cast<std::uint32_t>(place);
}

}  // namespace

void PutWord(std::string& bytes, std::size_t place, std::uint16_t value) {
    bytes.at(place) = static_cast<char>(value & 0xFF);
    bytes.at(place + 1) = static_cast<char>(value >> 8);
}

void PutDoubleWord(std::string& bytes, std::size_t place, std::uint32_t value) {
    PutWord(bytes, place, static_cast<std::uint16_t>(value & 0xFFFF));
    PutWord(bytes, place + 2, static_cast<std::uint16_t>(value >> 16));
}

std::uint32_t DoubleWordAt(std::string_view bytes, std::size_t place) {
    std::uint32_t value = 0;
    for (std::size_t byte = 4; byte-- > 0;) {
        value = value << 8 | static_cast<unsigned char>(bytes.at(place + byte));
    }
    return value;
}

bool ProgramBuilder::Key::operator<(const Key& other) const {
    if (Name.empty() != other.Name.empty()) {
        return other.Name.empty();
    }
    return Name.empty() ? Number < other.Number : Name < other.Name;
}

ProgramBuilder& ProgramBuilder::Add(
    std::string_view type, std::uint32_t number, std::uint32_t language, std::string_view bytes) {
    m_types[{std::string(type), 0}][{"", number}][language] = bytes;
    return *this;
}

ProgramBuilder&
ProgramBuilder::AddNamed(std::string_view type, std::string_view name, std::string_view bytes) {
    m_types[{std::string(type), 0}][{std::string(name), 0}][0] = bytes;
    return *this;
}

std::string ProgramBuilder::ResourceSection(std::uint32_t address) const {
    std::string section;
    std::size_t entry = AppendDirectory(section, m_types.size(), 0) + 16;
    for (const auto& [type, numbers] : m_types) {
        PutDoubleWord(section, entry, AppendName(section, type.Name));
        const std::size_t directory = AppendNumbers(section, numbers, address);
        PutDoubleWord(section, entry + 4, Offset(directory) | kHighBit);
        entry += 8;
    }
    return section;
}

std::size_t
ProgramBuilder::AppendNumbers(std::string& section, const Numbers& numbers, std::uint32_t address) {
    const auto named = static_cast<std::size_t>(std::ranges::count_if(
        numbers, [](const auto& number) { return !number.first.Name.empty(); }));
    const std::size_t directory = AppendDirectory(section, named, numbers.size() - named);
    std::size_t entry = directory + 16;
    for (const auto& [number, languages] : numbers) {
        PutDoubleWord(
            section, entry, number.Name.empty() ? number.Number : AppendName(section, number.Name));
        const std::size_t leaf = AppendLanguages(section, languages, address);
        PutDoubleWord(section, entry + 4, Offset(leaf) | kHighBit);
        entry += 8;
    }
    return directory;
}

std::size_t ProgramBuilder::AppendLanguages(
    std::string& section, const Languages& languages, std::uint32_t address) {
    const std::size_t directory = AppendDirectory(section, 0, languages.size());
    std::size_t entry = directory + 16;
    for (const auto& [language, bytes] : languages) {
        const std::size_t data = section.size();
        section.append(16, '\0');
        PutDoubleWord(section, data, address + Offset(section.size()));
        PutDoubleWord(section, data + 4, Offset(bytes.size()));
        section += bytes;
        PutDoubleWord(section, entry, language);
        PutDoubleWord(section, entry + 4, Offset(data));
        entry += 8;
    }
    return directory;
}

std::string ProgramBuilder::Build() const {
    const bool isWide = m_width == Width::Bits64;
    const std::size_t optional = 0x80 + 24;
    const std::size_t directories = optional + (isWide ? 112 : 96);
    const std::size_t sections = directories + 16 * 8;
    const std::string resources = m_types.empty() ? "" : ResourceSection(kResourceAddress);

    std::string file(kSectionStart, '\0');
    file.replace(0, 2, "MZ");
    PutDoubleWord(file, 0x3C, 0x80);
    file.replace(0x80, 2, "PE");
    PutWord(file, 0x80 + 4, isWide ? 0x8664 : 0x14C);
    PutWord(file, 0x80 + 6, 2);
    PutWord(file, 0x80 + 20, static_cast<std::uint16_t>(sections - optional));
    PutWord(file, optional, isWide ? 0x20B : 0x10B);
    PutDoubleWord(file, directories - 4, 16);
    if (!m_types.empty()) {
        PutDoubleWord(file, directories + 2 * 8, kResourceAddress);
        PutDoubleWord(file, directories + 2 * 8 + 4, Offset(resources.size()));
    }
    file.replace(sections, 5, ".text");
    PutDoubleWord(file, sections + 12, 0x1000);
    PutDoubleWord(file, sections + 16, 0x10);
    PutDoubleWord(file, sections + 20, kSectionStart);
    file.replace(sections + 40, 5, ".rsrc");
    PutDoubleWord(file, sections + 40 + 12, kResourceAddress);
    PutDoubleWord(file, sections + 40 + 16, Offset(resources.size()));
    PutDoubleWord(file, sections + 40 + 20, kSectionStart + 0x10);
    return file + std::string(0x10, '\x90') + resources;
}

}  // namespace dorvik::test
