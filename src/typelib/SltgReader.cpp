#include "SltgReader.h"

#include "modLocalePage.h"
#include "typelib/TypeKinds.h"

#include <algorithm>

namespace dorvik {

namespace {

constexpr std::uint16_t kNone = 0xFFFF;

// The head of the file.
constexpr std::uint64_t kBlockCountField = 0x04;  // one more than there are blocks
constexpr std::uint64_t kFirstBlockField = 0x0A;  // blocks are counted from 1
constexpr std::uint64_t kHeaderSize = 0x24;
constexpr std::uint64_t kBlockSize = 8;
constexpr std::uint64_t kBlockNextField = 6;
constexpr std::uint64_t kNamesHead = 13;
constexpr std::uint64_t kNameOfBlock = 11;
constexpr std::uint64_t kNamesTail = 9;

// The block of the library.
constexpr std::uint16_t kLibraryMark = 0x51CC;
constexpr std::uint64_t kNameField = 4;
constexpr std::uint64_t kTextsField = 6;
constexpr std::uint64_t kListOfNumbers = 0x40;  // between the GUID and the types
constexpr std::uint16_t kUnitedStates = 0x0409;

// The table of names.
constexpr std::uint16_t kLongTable = 0x0200;  // begins a table with a longer head
constexpr std::uint64_t kLongTableExtra = 0x20;
constexpr std::uint64_t kNamesSizeField = 0x20C;
constexpr std::uint64_t kNamesStart = 0x210;
constexpr std::uint64_t kFirstName = 8;  // offsets of names count from here
constexpr std::uint64_t kLongestName = 255;

/// Follows the chain of blocks, whose data are in its order, to the last one.
ByteView LibraryBlock(const ByteView& library) {
    const std::uint64_t count = library.Word(kBlockCountField);
    if (count < 2) {
        RaiseFormatError(
            "offset " + HexText(library.FileOffset(kBlockCountField)) + " declares no blocks");
    }
    const ByteView entries =
        library.Part(kHeaderSize, (count - 1) * kBlockSize, "the list of blocks");
    std::uint64_t start =
        kHeaderSize + entries.Size() + kNamesHead + (count - 2) * kNameOfBlock + kNamesTail;
    std::uint64_t block = library.Word(kFirstBlockField);
    for (std::uint64_t visited = 1; visited < count; ++visited) {
        if (block == 0) {
            break;
        }
        const std::uint64_t entry = (block - 1) * kBlockSize;
        const std::uint64_t size = entries.DoubleWord(entry);
        block = entries.Word(entry + kBlockNextField);
        if (block == 0) {
            return library.Part(start, size, "the block of the library");
        }
        start += size;
    }
    RaiseFormatError(
        "the chain of blocks from offset " + HexText(library.FileOffset(kFirstBlockField)) +
        " has no end");
}

std::int32_t CheckedKind(std::uint16_t kind, std::uint64_t fileOffset) {
    if (std::ranges::find(kTypeKinds, kind, &TypeKindRow::Kind) == kTypeKinds.end()) {
        RaiseFormatError(
            "the type before offset " + HexText(fileOffset) + " has the unknown kind " +
            std::to_string(kind));
    }
    return kind;
}

}  // namespace

SltgReader::SltgReader(const ByteView& library) : m_block(LibraryBlock(library)) {
    if (m_block.Word(0) != kLibraryMark) {
        RaiseFormatError(
            "the block of the library at offset " + HexText(m_block.FileOffset(0)) +
            " does not begin as one");
    }
}

TypeLibraryFacts SltgReader::Read() {
    TypeLibraryFacts facts;
    ReadLibrary(facts);
    ReadTypes(facts);
    ReadNames(facts);
    return facts;
}

void SltgReader::ReadLibrary(TypeLibraryFacts& facts) {
    m_place = kTextsField;
    NextText();
    const std::string_view helpText = NextText();
    NextText();   // the help file
    Skip(4 + 2);  // the help topic, the system
    const std::uint16_t locale = NextWord();
    Skip(4 + 2);  // unknown, flags
    facts.MajorVersion = NextWord();
    facts.MinorVersion = NextWord();
    facts.Guid = m_block.Guid(m_place);
    Skip(16);
    // Compilers write this for a library whose author gives no locale.
    facts.Lcid = locale == kUnitedStates ? 0 : locale;
    m_codePage = modLocalePage::PageOf(locale);
    facts.Description = modLocalePage::HelpText(helpText, m_codePage);
}

void SltgReader::ReadTypes(TypeLibraryFacts& facts) {
    Skip(kListOfNumbers);
    const std::uint16_t count = NextWord();
    m_nameOffsets.clear();
    for (std::uint16_t number = 0; number < count; ++number) {
        NextText();  // names of blocks
        NextText();
        Skip(2);
        m_nameOffsets.push_back(NextWord());
        NextText();
        Skip(2 + 4 + 2 + 16);  // unknown, help topic, unknown, GUID
        const std::uint16_t kind = NextWord();
        facts.Contents.Types.push_back({{}, CheckedKind(kind, m_block.FileOffset(m_place))});
    }
}

void SltgReader::ReadNames(TypeLibraryFacts& facts) const {
    const ByteView names = Names();
    facts.Contents.Name = Name(names, m_block.Word(kNameField));
    for (std::size_t number = 0; number < m_nameOffsets.size(); ++number) {
        facts.Contents.Types[number].Name = Name(names, m_nameOffsets[number]);
    }
    std::erase_if(facts.Contents.Types, [](const auto& type) { return type.Name.empty(); });
}

ByteView SltgReader::Names() const {
    ByteView table = m_block.From(m_block.DoubleWord(m_place), "the table of names");
    if (table.Word(0) == kLongTable) {
        table = table.From(kLongTableExtra, "the table of names");
    }
    const std::uint64_t size = table.DoubleWord(kNamesSizeField);
    return table.Part(kNamesStart, size, "the list of names");
}

std::string SltgReader::Name(const ByteView& names, std::uint64_t offset) const {
    if (offset == kNone) {
        return {};
    }
    const std::uint64_t start = kFirstName + offset;
    return modLocalePage::NameText(
        names.ZeroEnded(start, kLongestName), m_codePage, names.FileOffset(start));
}

std::uint16_t SltgReader::NextWord() {
    const std::uint16_t word = m_block.Word(m_place);
    m_place += 2;
    return word;
}

std::string_view SltgReader::NextText() {
    const std::uint16_t length = NextWord();
    if (length == kNone) {
        return {};
    }
    const std::string_view text = m_block.Bytes(m_place, length);
    m_place += length;
    return text;
}

}  // namespace dorvik
