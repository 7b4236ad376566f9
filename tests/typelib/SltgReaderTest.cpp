#include "typelib/LibraryFixture.h"
#include "typelib/ProgramBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace dorvik;
using namespace dorvik::test;
using ::testing::ElementsAre;

namespace {

// Where things are in libraries/old.tlb.
constexpr std::size_t kBlockCount = 0x04;
constexpr std::size_t kFirstBlock = 0x0A;
constexpr std::size_t kThirdBlock = 0x34;
constexpr std::size_t kLibraryBlock = 0x16E;
constexpr std::size_t kLocale = 0x18B;
constexpr std::size_t kFirstKind = 0x21F;
constexpr std::size_t kSecondKind = 0x257;
constexpr std::size_t kNamesOffset = 0x259;
constexpr std::size_t kNameTable = 0x263;
constexpr std::size_t kNamesSize = 0x46F;

}  // namespace

TEST(SltgReader, ReadsTheNamesAndKindsOfTypes) {
    EXPECT_THAT(TypesOf(OnlyLibrary(LibraryBytes("old"))), ElementsAre("OldRecord 1", "IOld 3"));
}

TEST(SltgReader, ReadsWhatIdentifiesTheLibrary) {
    const TypeLibraryFacts facts = OnlyLibrary(LibraryBytes("old"));
    EXPECT_EQ(facts.Guid, "{6F5B1C10-8A4E-4D3A-9B61-0C2F5E7A1D31}");
    EXPECT_EQ(facts.MajorVersion, 2);
    EXPECT_EQ(facts.MinorVersion, 5);
    EXPECT_EQ(facts.Lcid, 0x0407);
    EXPECT_EQ(facts.Description, "Old Library");
    EXPECT_EQ(facts.Contents.Name, "OldLibrary");
}

TEST(SltgReader, KnowsEveryKind) {
    for (std::uint16_t kind = 0; kind <= 7; ++kind) {
        std::string bytes = LibraryBytes("old");
        PutWord(bytes, kSecondKind, kind);
        EXPECT_THAT(
            TypesOf(OnlyLibrary(bytes)),
            ElementsAre("OldRecord 1", "IOld " + std::to_string(kind)));
    }
}

TEST(SltgReader, TakesTheLocaleOfTheUnitedStatesForNone) {
    std::string bytes = LibraryBytes("old");
    PutWord(bytes, kLocale, 0x0409);
    EXPECT_EQ(OnlyLibrary(bytes).Lcid, 0);
    PutWord(bytes, kLocale, 0x0009);
    EXPECT_EQ(OnlyLibrary(bytes).Lcid, 9);
}

TEST(SltgReader, DecodesNamesByTheCodePageOfTheLocale) {
    std::string bytes = WithText(LibraryBytes("old"), "IOld", "\xD6\xE2\xE5\xF2");
    PutWord(bytes, kLocale, 0x0419);
    EXPECT_THAT(
        TypesOf(OnlyLibrary(bytes)), ElementsAre("OldRecord 1", "\u0426\u0432\u0435\u0442 3"));
}

TEST(SltgReader, ReadsATableOfNamesWithALongHead) {
    std::string bytes = LibraryBytes("old");
    bytes.insert(kNameTable, std::string("\x00\x02", 2) + std::string(0x1E, '\xFF'));
    PutDoubleWord(bytes, kThirdBlock, DoubleWordAt(bytes, kThirdBlock) + 0x20);
    EXPECT_THAT(TypesOf(OnlyLibrary(bytes)), ElementsAre("OldRecord 1", "IOld 3"));
}

TEST(SltgReader, NamesThePlaceOfWhatIsWrong) {
    struct Row {
        std::size_t Place;
        std::uint16_t Value;
        std::string_view Fault;
    };
    const Row rows[] = {
        {kBlockCount, 0, "offset 0x4 declares no blocks"},
        {kBlockCount,
         0xFFFF,
         "the list of blocks (524272 bytes at offset 0x24) is outside the file (0x0 to 0x525)"},
        {kFirstBlock, 0, "the chain of blocks from offset 0xA has no end"},
        {kFirstBlock, 9, "offset 0x64 leads outside the list of blocks (0x24 to 0x3C)"},
        {kThirdBlock + 6, 1, "the chain of blocks from offset 0xA has no end"},
        {kLibraryBlock, 1, "the block of the library at offset 0x16E does not begin as one"},
        {kFirstKind, 8, "the type before offset 0x221 has the unknown kind 8"},
        {kNamesOffset,
         0xFFF0,
         "the table of names (0 bytes at offset 0x1015E) is outside the block of the library "
         "(0x16E to 0x4E1)"},
        {kNamesSize,
         0x1000,
         "the list of names (4096 bytes at offset 0x473) is outside the table of names "
         "(0x263 to 0x4E1)"},
        {kNamesSize, 0x30, "offset 0x4B5 leads outside the list of names (0x473 to 0x4A3)"},
        {kNamesSize, 0x22, "the text at offset 0x48F has no end"},
    };
    for (const Row& row : rows) {
        std::string bytes = LibraryBytes("old");
        PutWord(bytes, row.Place, row.Value);
        std::string fault = "\"test.tlb\" is damaged: ";
        fault += row.Fault;
        fault += '.';
        EXPECT_EQ(OnlyFault(bytes), fault);
    }
}
