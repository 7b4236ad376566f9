#include "typelib/TypeCatalogue.h"

#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace dorvik {

namespace {

using test::TemporaryFolder;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kStock = R"(# Our own controls.
library      Stock
guid         {0a6c2f10-1234-4abc-9def-001122334455}
version      2.0 2.1
language     1033
file         Stock.ocx
description  Stock controls
source       the maker's manual,
source       second edition
note         Only what we use.

control      Shelf  Rack
class        Item
enum         ShelfStyle	RackStyle
record       Size
interface    IShelf
dispatch     IRack
module       StockConstants
alias        StockColour
union        Bits
)";

std::vector<std::string> TypesOf(const CatalogueLibrary& library) {
    std::vector<std::string> types;
    for (const auto& type : library.Facts.Contents.Types) {
        types.push_back(type.Name + " " + std::to_string(type.Kind));
    }
    return types;
}

TypeCatalogue Read(std::string_view text) {
    TypeCatalogue catalogue;
    catalogue.ReadText(text, "own.txt");
    return catalogue;
}

/// A library of one version with one class.
std::string Library(const std::string& name, const std::string& digit, const std::string& version) {
    return "library " + name + "\nguid {0000000" + digit +
           "-0000-0000-0000-000000000000}\nversion " + version + "\n";
}

std::string GuidOf(const std::string& digit) {
    return "{0000000" + digit + "-0000-0000-0000-000000000000}";
}

struct FaultRow {
    std::string_view Name;
    std::string Text;
    std::size_t Line;
    std::string What;
};

std::ostream& operator<<(std::ostream& stream, const FaultRow& row) {
    return stream << row.Name;
}

std::string NameOfRow(const ::testing::TestParamInfo<FaultRow>& info) {
    return std::string(info.param.Name);
}

class FaultOfTypeCatalogue : public ::testing::TestWithParam<FaultRow> {};

}  // namespace

TEST(TypeCatalogue, LibraryIsReadWithAllThatTheFileSays) {
    const TypeCatalogue catalogue = Read(kStock);
    EXPECT_THAT(catalogue.Faults(), IsEmpty());
    ASSERT_EQ(catalogue.Libraries().size(), 2U);
    const CatalogueLibrary& library = catalogue.Libraries().front();
    EXPECT_EQ(library.Facts.Contents.Name, "Stock");
    EXPECT_EQ(library.Facts.Guid, "{0A6C2F10-1234-4ABC-9DEF-001122334455}");
    EXPECT_EQ(library.Facts.MajorVersion, 2);
    EXPECT_EQ(library.Facts.MinorVersion, 0);
    EXPECT_EQ(library.Facts.Lcid, 1033);
    EXPECT_EQ(library.Facts.Description, "Stock controls");
    EXPECT_EQ(library.Filename, "Stock.ocx");
    EXPECT_EQ(library.Source, "the maker's manual, second edition");
    EXPECT_EQ(library.Note, "Only what we use.");
    EXPECT_EQ(library.CatalogueFile, "own.txt");
    EXPECT_THAT(
        TypesOf(library),
        ElementsAre(
            "Shelf 5",
            "Rack 5",
            "Item 5",
            "ShelfStyle 0",
            "RackStyle 0",
            "Size 1",
            "IShelf 3",
            "IRack 4",
            "StockConstants 2",
            "StockColour 6",
            "Bits 7"));
    EXPECT_EQ(catalogue.Libraries()[1].Facts.MinorVersion, 1);
    EXPECT_EQ(TypesOf(catalogue.Libraries()[1]), TypesOf(library));
}

TEST(TypeCatalogue, LineEndsByteOrderMarkAndCaseOfTheWordsDoNotMatter) {
    const TypeCatalogue catalogue =
        Read("\xEF\xBB\xBFLibrary X\r\n\tGUID {00000001-0000-0000-0000-000000000000}\r\n"
             "VERSION 1.0\r\n\r\nClass A");
    EXPECT_THAT(catalogue.Faults(), IsEmpty());
    ASSERT_EQ(catalogue.Libraries().size(), 1U);
    EXPECT_THAT(TypesOf(catalogue.Libraries().front()), ElementsAre("A 5"));
}

TEST(TypeCatalogue, OneFileCanTellOfSeveralLibraries) {
    const TypeCatalogue catalogue =
        Read(Library("A", "1", "1.0") + "class X\n" + Library("B", "2", "1.0") + "class X\n");
    EXPECT_THAT(catalogue.Faults(), IsEmpty());
    ASSERT_EQ(catalogue.Libraries().size(), 2U);
    EXPECT_EQ(catalogue.Libraries()[1].Facts.Contents.Name, "B");
}

TEST_P(FaultOfTypeCatalogue, NamesFileAndLineAndTheRestIsKept) {
    const TypeCatalogue catalogue =
        Read(GetParam().Text + Library("Rest", "9", "1.0") + "class A\n");
    ASSERT_EQ(catalogue.Faults().size(), 1U);
    EXPECT_EQ(catalogue.Faults().front().File, "own.txt");
    EXPECT_EQ(catalogue.Faults().front().Line, GetParam().Line);
    EXPECT_EQ(catalogue.Faults().front().What, GetParam().What);
    const CatalogueLibrary* const rest = catalogue.Find({GuidOf("9"), 1, 0, 0});
    ASSERT_NE(rest, nullptr);
    EXPECT_THAT(TypesOf(*rest), ElementsAre("A 5"));
}

INSTANTIATE_TEST_SUITE_P(
    TypeCatalogue,
    FaultOfTypeCatalogue,
    ::testing::Values(
        FaultRow{"UnknownWord", Library("A", "1", "1.0") + "clas X\n", 4, "unknown keyword 'clas'"},
        FaultRow{
            "NoLibraryYet",
            "class X\n",
            1,
            "it comes before the first line that begins with 'library'"},
        FaultRow{
            "NothingBehindTheWord",
            Library("A", "1", "1.0") + "class \n",
            4,
            "no value follows 'class'"},
        FaultRow{
            "NoNameOfAType",
            Library("A", "1", "1.0") + "class X 1Y Z\n",
            4,
            "'1Y' is not a valid name of a type"},
        FaultRow{
            "NameTwice",
            Library("A", "1", "1.0") + "class X\nenum x\n",
            5,
            "the library has the name 'x' already"},
        FaultRow{
            "NoVersionNumber",
            Library("A", "1", "1.0 2") + "class X\n",
            3,
            "'2' is not a version; an example is 2.0"},
        FaultRow{
            "VersionTooHigh",
            Library("A", "1", "1.0 2.65536") + "class X\n",
            3,
            "'2.65536' is not a version; an example is 2.0"},
        FaultRow{
            "NoLanguage",
            Library("A", "1", "1.0") + "language German\n",
            4,
            "'German' is not a language; an example is 1033, and 0 means none"},
        FaultRow{
            "LibraryWithoutGuid", "\nlibrary A\nversion 1.0\n", 2, "the library 'A' has no GUID"},
        FaultRow{
            "LibraryWithoutVersion",
            "library A\nguid {00000001-0000-0000-0000-000000000000}\n",
            1,
            "the library 'A' has no version"},
        FaultRow{
            "TypesAsSomethingThatIsNoGuid",
            Library("A", "1", "1.0") + "types-as ADODB 2.7\n",
            4,
            "'types-as' must be followed by a GUID and a version"},
        FaultRow{
            "TypesAsAnUnknownLibrary",
            Library("A", "1", "1.0") + "types-as {00000007-0000-0000-0000-000000000000} 1.0\n",
            4,
            "no library of the catalogue has that GUID and version, and types of its own"},
        FaultRow{
            "TypesAsItself",
            Library("A", "1", "1.0") + "types-as {00000001-0000-0000-0000-000000000000} 1.0\n",
            4,
            "no library of the catalogue has that GUID and version, and types of its own"}),
    NameOfRow);

TEST(TypeCatalogue, WrongGuidIsToldAndLeavesTheLibraryWithoutOne) {
    const TypeCatalogue catalogue = Read("library A\nguid 1234\nversion 1.0\nclass X\n");
    ASSERT_EQ(catalogue.Faults().size(), 2U);
    EXPECT_EQ(catalogue.Faults()[0].Line, 2U);
    EXPECT_THAT(catalogue.Faults()[0].What, HasSubstr("'1234' is not a GUID"));
    EXPECT_EQ(catalogue.Faults()[1].What, "the library 'A' has no GUID");
}

TEST(TypeCatalogue, TypesAreLentToLibrariesBeforeAndBehindAndOwnOnesStay) {
    const TypeCatalogue catalogue = Read(
        Library("Early", "1", "1.0") + "types-as " + GuidOf("2") + " 3.0\nenum Own\n" +
        Library("Lender", "2", "3.0") + "class A\nclass own\n" + Library("Late", "3", "1.0") +
        "types-as " + GuidOf("1") + " 1.0\n");
    EXPECT_THAT(catalogue.Faults(), IsEmpty());
    EXPECT_THAT(TypesOf(*catalogue.Find({GuidOf("1"), 1, 0, 0})), ElementsAre("Own 0", "A 5"));
    EXPECT_THAT(TypesOf(*catalogue.Find({GuidOf("3"), 1, 0, 0})), ElementsAre("Own 0", "A 5"));
}

TEST(TypeCatalogue, AnotherMinorVersionAnswersAndAnotherMajorVersionDoesNot) {
    const TypeCatalogue catalogue =
        Read(Library("A", "1", "2.3") + "class Old\n" + Library("A", "1", "2.5") + "class New\n");
    EXPECT_THAT(TypesOf(*catalogue.Find({GuidOf("1"), 2, 3, 0})), ElementsAre("Old 5"));
    EXPECT_THAT(TypesOf(*catalogue.Find({GuidOf("1"), 2, 4, 0})), ElementsAre("New 5"));
    EXPECT_THAT(TypesOf(*catalogue.Find({GuidOf("1"), 2, 9, 1033})), ElementsAre("New 5"));
    EXPECT_EQ(catalogue.Find({GuidOf("1"), 3, 0, 0}), nullptr);
    EXPECT_EQ(catalogue.Find({GuidOf("2"), 2, 3, 0}), nullptr);
}

TEST(TypeCatalogue, LibraryWithoutTypesDoesNotAnswer) {
    const TypeCatalogue catalogue =
        Read(Library("A", "1", "2.0") + Library("A", "1", "2.5") + "class X\n");
    EXPECT_EQ(catalogue.Libraries().size(), 2U);
    ASSERT_NE(catalogue.Find({GuidOf("1"), 2, 0, 0}), nullptr);
    EXPECT_EQ(catalogue.Find({GuidOf("1"), 2, 0, 0})->Facts.MinorVersion, 5);
    EXPECT_EQ(Read(Library("A", "1", "2.0")).Find({GuidOf("1"), 2, 0, 0}), nullptr);
}

TEST(TypeCatalogue, FolderReadLaterWins) {
    const TemporaryFolder folder;
    folder.Write("program\\a.txt", Library("A", "1", "1.0") + "class Old\n");
    folder.Write("program\\b.txt", Library("B", "2", "1.0") + "class Stays\n");
    folder.Write("program\\notes.md", "no catalogue\n");
    folder.Write("own\\mine.TXT", Library("A", "1", "1.0") + "class New\n");
    TypeCatalogue catalogue;
    catalogue.ReadFolder(folder.Path("program\\"));
    catalogue.ReadFolder(folder.Path("own"));
    catalogue.ReadFolder(folder.Path("absent"));
    EXPECT_THAT(catalogue.Faults(), IsEmpty());
    EXPECT_EQ(catalogue.Libraries().size(), 2U);
    EXPECT_THAT(TypesOf(*catalogue.Find({GuidOf("1"), 1, 0, 0})), ElementsAre("New 5"));
    EXPECT_THAT(TypesOf(*catalogue.Find({GuidOf("2"), 1, 0, 0})), ElementsAre("Stays 5"));
}

}  // namespace dorvik
