#include "MsftReader.h"

#include "modLocalePage.h"
#include "typelib/TypeKinds.h"

#include <algorithm>

namespace dorvik {

namespace {

constexpr std::uint32_t kNone = 0xFFFFFFFF;

// Offsets in the header.
constexpr std::uint64_t kGuidField = 0x08;
constexpr std::uint64_t kTextLocaleField = 0x0C;  // of the texts, always set
constexpr std::uint64_t kLocaleField = 0x10;      // as the author gave it
constexpr std::uint64_t kFlagsField = 0x14;
constexpr std::uint64_t kVersionField = 0x18;  // major version in the low half
constexpr std::uint64_t kTypeCountField = 0x20;
constexpr std::uint64_t kHelpTextField = 0x24;
constexpr std::uint64_t kNameField = 0x38;
constexpr std::uint64_t kHeaderSize = 0x54;
constexpr std::uint32_t kHasHelpLibrary = 0x100;  // then the header is 4 bytes longer

// The directory of tables.
constexpr std::uint64_t kTypeTable = 0;
constexpr std::uint64_t kGuidTable = 5;
constexpr std::uint64_t kNameTable = 7;
constexpr std::uint64_t kTextTable = 8;
constexpr std::uint64_t kDirectoryEntrySize = 16;

// The entry of a type, and of a name.
constexpr std::uint64_t kTypeSize = 100;
constexpr std::uint32_t kKindMask = 15;
constexpr std::uint64_t kTypeNameField = 0x34;
constexpr std::uint64_t kNameLengthField = 8;
constexpr std::uint64_t kNameTextField = 12;

int CodePageOf(const ByteView& library) {
    const std::uint32_t locale = library.DoubleWord(kLocaleField);
    return modLocalePage::PageOf(locale == 0 ? library.DoubleWord(kTextLocaleField) : locale);
}

}  // namespace

MsftReader::MsftReader(const ByteView& library)
    : m_library(library),
      m_typeCount(library.DoubleWord(kTypeCountField)),
      m_typeOffsets(
          kHeaderSize + ((library.DoubleWord(kFlagsField) & kHasHelpLibrary) == 0 ? 0 : 4)),
      m_types(Table(kTypeTable, "the table of types")),
      m_guids(Table(kGuidTable, "the table of GUIDs")),
      m_names(Table(kNameTable, "the table of names")),
      m_texts(Table(kTextTable, "the table of texts")),
      m_codePage(CodePageOf(library)) {
    if (m_typeCount > m_types.Size() / kTypeSize) {
        RaiseFormatError(
            "offset " + HexText(library.FileOffset(kTypeCountField)) + " declares " +
            std::to_string(m_typeCount) + " types, but the table of types holds " +
            std::to_string(m_types.Size() / kTypeSize));
    }
}

TypeLibraryFacts MsftReader::Read() const {
    TypeLibraryFacts facts;
    if (const std::uint32_t guid = m_library.DoubleWord(kGuidField); guid != kNone) {
        facts.Guid = m_guids.Guid(guid);
    }
    facts.MajorVersion = m_library.Word(kVersionField);
    facts.MinorVersion = m_library.Word(kVersionField + 2);
    facts.Lcid = static_cast<std::int32_t>(m_library.DoubleWord(kLocaleField));
    facts.Description = Text(m_library.DoubleWord(kHelpTextField));
    facts.Contents.Name = Name(m_library.DoubleWord(kNameField));
    facts.Contents.Types.reserve(m_typeCount);
    for (std::uint64_t number = 0; number < m_typeCount; ++number) {
        facts.Contents.Types.push_back(Type(number));
    }
    // Nothing can be declared as a type that has no name.
    std::erase_if(facts.Contents.Types, [](const auto& type) { return type.Name.empty(); });
    return facts;
}

ByteView MsftReader::Table(std::uint64_t number, std::string_view name) const {
    // A product of 64 bits: no number of types makes it wrap.
    const std::uint64_t entry = m_typeOffsets + 4 * m_typeCount + kDirectoryEntrySize * number;
    const std::uint32_t start = m_library.DoubleWord(entry);
    const std::uint32_t size = m_library.DoubleWord(entry + 4);
    return start == kNone || size == 0 ? m_library.Part(0, 0, name)
                                       : m_library.Part(start, size, name);
}

TypeLibraryContents::TypeEntry MsftReader::Type(std::uint64_t number) const {
    const std::uint32_t start = m_library.DoubleWord(m_typeOffsets + 4 * number);
    const auto kind = static_cast<std::int32_t>(m_types.DoubleWord(start) & kKindMask);
    if (std::ranges::find(kTypeKinds, kind, &TypeKindRow::Kind) == kTypeKinds.end()) {
        RaiseFormatError(
            "the type at offset " + HexText(m_types.FileOffset(start)) + " has the unknown kind " +
            std::to_string(kind));
    }
    return {Name(m_types.DoubleWord(start + kTypeNameField)), kind};
}

std::string MsftReader::Name(std::uint32_t offset) const {
    if (offset == kNone) {
        return {};
    }
    const std::uint64_t start = offset;
    const std::uint32_t length = m_names.DoubleWord(start + kNameLengthField) & 0xFF;
    return modLocalePage::NameText(
        m_names.Bytes(start + kNameTextField, length), m_codePage, m_names.FileOffset(start));
}

std::string MsftReader::Text(std::uint32_t offset) const {
    if (offset == kNone) {
        return {};
    }
    const std::uint64_t start = offset;
    return modLocalePage::HelpText(m_texts.Bytes(start + 2, m_texts.Word(start)), m_codePage);
}

}  // namespace dorvik
