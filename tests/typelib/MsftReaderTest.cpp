#include "typelib/LibraryFixture.h"
#include "typelib/ProgramBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace dorvik;
using namespace dorvik::test;
using ::testing::ElementsAre;

TEST(MsftReader, ReadsTheNamesAndKindsOfAllKindsOfTypes) {
    const TypeLibraryFacts facts = OnlyLibrary(LibraryBytes("kinds"));
    EXPECT_THAT(
        TypesOf(facts),
        ElementsAre(
            "ColourConstants 0",
            "WeekDay 0",
            "PointRecord 1",
            "HandleAlias 6",
            "NumberUnion 7",
            "DesktopModule 2",
            "IPlain 3",
            "IUnknown 3",
            "ShapeEvents 4",
            "Shape 5"));
}

TEST(MsftReader, ReadsWhatIdentifiesTheLibrary) {
    const TypeLibraryFacts facts = OnlyLibrary(LibraryBytes("kinds"));
    EXPECT_EQ(facts.Guid, "{6F5B1C10-8A4E-4D3A-9B61-0C2F5E7A1D01}");
    EXPECT_EQ(facts.MajorVersion, 3);
    EXPECT_EQ(facts.MinorVersion, 7);
    EXPECT_EQ(facts.Lcid, 0);
    EXPECT_EQ(facts.Description, "Kinds of Types");
    EXPECT_EQ(facts.Contents.Name, "KindsLibrary");
}

TEST(MsftReader, ReadsTheLocaleThatTheAuthorGave) {
    const TypeLibraryFacts facts = OnlyLibrary(LibraryBytes("german"));
    EXPECT_EQ(facts.Lcid, 0x0407);
    EXPECT_THAT(TypesOf(facts), ElementsAre("Farbe 0"));
}

TEST(MsftReader, ReadsALibraryWithoutTypesAndWithoutHelpText) {
    const TypeLibraryFacts facts = OnlyLibrary(LibraryBytes("empty"));
    EXPECT_EQ(facts.Contents.Name, "EmptyLibrary");
    EXPECT_EQ(facts.Description, "");
    EXPECT_EQ(facts.MajorVersion, 0);
    EXPECT_TRUE(facts.Contents.Types.empty());
}

TEST(MsftReader, DecodesNamesByTheCodePageOfTheLocale) {
    struct Row {
        std::uint32_t Locale;
        std::string_view Bytes;
        std::string_view Name;
    };
    const Row rows[] = {
        {0x0000, "F\xE4rbe", "F\u00E4rbe"},
        {0x0407, "F\xE4rbe", "F\u00E4rbe"},
        {0x0419, "\xD6\xE2\xE5\xF2\xE0", "\u0426\u0432\u0435\u0442\u0430"},
        {0x0408, "\xD7\xF1\xFE\xEC\xE1", "\u03A7\u03C1\u03CE\u03BC\u03B1"},
        {0x0411, "\x90\x46\x90\x46X", "\u8272\u8272X"},
        {0x0804, "\xD1\xD5\xC9\xABX", "\u989C\u8272X"},
        {0x0C1A, "\xC1\xEE\xBC\xE0X", "\u0411\u043E\u0458\u0430X"},
        {0x081A, "Boj\x9Ag", "Boj\u0161g"},
    };
    for (const Row& row : rows) {
        std::string bytes = WithText(LibraryBytes("german"), "Farbe", row.Bytes);
        PutDoubleWord(bytes, 0x10, row.Locale);
        EXPECT_THAT(TypesOf(OnlyLibrary(bytes)), ElementsAre(std::string(row.Name) + " 0"));
    }
}

TEST(MsftReader, DecodesTextsByTheTextLocaleIfTheAuthorGaveNoLocale) {
    std::string bytes = WithText(LibraryBytes("german"), "German", "\xCD\xE5\xEC\xE5\xF6.");
    PutDoubleWord(bytes, 0x0C, 0x0419);
    PutDoubleWord(bytes, 0x10, 0);
    const TypeLibraryFacts facts = OnlyLibrary(bytes);
    EXPECT_EQ(facts.Description, "\u041D\u0435\u043C\u0435\u0446. Library");
    EXPECT_EQ(facts.Lcid, 0);
}

TEST(MsftReader, TakesLineEndsOfTheHelpTextForBlanks) {
    const std::string bytes = WithText(LibraryBytes("kinds"), "Kinds of", "Kinds\r\nf");
    EXPECT_EQ(OnlyLibrary(bytes).Description, "Kinds  f Types");
}

TEST(MsftReader, ReadsALibraryWhoseHeaderNamesALibraryOfHelpTexts) {
    std::string bytes = LibraryBytes("empty");
    constexpr std::size_t kHeader = 0x54;
    constexpr std::size_t kDirectory = 15 * 16;
    PutDoubleWord(bytes, 0x14, DoubleWordAt(bytes, 0x14) | 0x100);
    for (std::size_t entry = kHeader; entry < kHeader + kDirectory; entry += 16) {
        if (DoubleWordAt(bytes, entry) != 0xFFFFFFFF) {
            PutDoubleWord(bytes, entry, DoubleWordAt(bytes, entry) + 4);
        }
    }
    bytes.insert(kHeader, 4, '\0');
    EXPECT_EQ(OnlyLibrary(bytes).Contents.Name, "EmptyLibrary");
}

TEST(MsftReader, LeavesOutATypeWithoutAName) {
    std::string bytes = LibraryBytes("german");
    const std::size_t types = DoubleWordAt(bytes, 0x58);
    PutDoubleWord(bytes, types + 0x34, 0xFFFFFFFF);
    EXPECT_THAT(TypesOf(OnlyLibrary(bytes)), ElementsAre());
}

TEST(MsftReader, NamesThePlaceOfATableOutsideTheFile) {
    std::string bytes = LibraryBytes("german");
    constexpr std::size_t kNameTable = 0x58 + 7 * 16;
    PutDoubleWord(bytes, kNameTable, 0x7FFFFFF0);
    EXPECT_EQ(
        OnlyFault(bytes),
        "\"test.tlb\" is damaged: the table of names (88 bytes at offset 0x7FFFFFF0) is "
        "outside the file (0x0 to 0x5AC).");
}

TEST(MsftReader, NamesThePlaceOfANameOutsideItsTable) {
    std::string bytes = LibraryBytes("german");
    PutDoubleWord(bytes, 0x38, 0x1000);
    EXPECT_EQ(
        OnlyFault(bytes),
        "\"test.tlb\" is damaged: offset 0x1494 leads outside the table of names "
        "(0x48C to 0x4E4).");
}

TEST(MsftReader, ComparesTheNumberOfTypesWithTheTableBeforeItIsUsed) {
    std::string bytes = LibraryBytes("empty");
    PutDoubleWord(bytes, 0x20, 1);
    EXPECT_THAT(OnlyFault(bytes), testing::HasSubstr("is outside the file"));
    bytes = LibraryBytes("german");
    PutDoubleWord(bytes, 0x20, 0xFFFFFFFF);
    EXPECT_THAT(OnlyFault(bytes), testing::HasSubstr("leads outside the file"));
    bytes = LibraryBytes("german");
    PutDoubleWord(bytes, 0x58 + 4, 99);
    EXPECT_EQ(
        OnlyFault(bytes),
        "\"test.tlb\" is damaged: offset 0x20 declares 1 types, but the table of types "
        "holds 0.");
}

TEST(MsftReader, RefusesAKindThatDoesNotExist) {
    std::string bytes = LibraryBytes("german");
    const std::size_t types = DoubleWordAt(bytes, 0x58);
    PutDoubleWord(bytes, types, 9);
    EXPECT_EQ(
        OnlyFault(bytes),
        "\"test.tlb\" is damaged: the type at offset 0x148 has the unknown kind 9.");
}

TEST(MsftReader, RefusesANameWithControlCharacters) {
    const std::string bytes = WithText(LibraryBytes("german"), "Farbe", "Far\ne");
    EXPECT_EQ(
        OnlyFault(bytes),
        "\"test.tlb\" is damaged: the name at offset 0x4A8 holds control characters.");
}
