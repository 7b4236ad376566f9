#include "support/TemporaryFolder.h"
#include "typelib/LibraryFixture.h"
#include "typelib/ProgramBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

using namespace dorvik;
using namespace dorvik::test;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

/// "3 KindsLibrary" for each library.
std::vector<std::string> LibraryTexts(const TypeLibraryFile& file) {
    std::vector<std::string> texts;
    for (const NumberedTypeLibrary& library : file.Libraries) {
        texts.push_back(std::to_string(library.Number) + " " + library.Facts.Contents.Name);
    }
    return texts;
}

/// Libraries of both formats, two languages of one number, and something else.
std::string Program() {
    ProgramBuilder builder;
    builder.Add("TYPELIB", 1, 0, LibraryBytes("kinds")).Add("TYPELIB", 2, 0, LibraryBytes("old"));
    builder.Add("TYPELIB", 3, 0x407, LibraryBytes("german"));
    builder.Add("TYPELIB", 3, 0x409, LibraryBytes("empty")).Add("ICON", 1, 0, "icon");
    return builder.Build();
}

}  // namespace

TEST(modTypeLibraryFile, GivesEveryLibraryOfAFileWithItsNumber) {
    const TemporaryFolder folder;
    const TypeLibraryFile file = modTypeLibraryFile::ReadAll(folder.Write("Four.dll", Program()));
    EXPECT_THAT(
        LibraryTexts(file),
        ElementsAre("1 KindsLibrary", "2 OldLibrary", "3 GermanLibrary", "3 EmptyLibrary"));
    EXPECT_THAT(file.Faults, IsEmpty());
    EXPECT_FALSE(file.IsOther);
}

TEST(modTypeLibraryFile, GivesTheOneLibraryOfALooseFileTheNumberOne) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("Kinds.any", LibraryBytes("kinds"));
    EXPECT_THAT(LibraryTexts(modTypeLibraryFile::ReadAll(path)), ElementsAre("1 KindsLibrary"));
    EXPECT_THAT(LibraryTexts(modTypeLibraryFile::Read(path, 1)), ElementsAre("1 KindsLibrary"));
    EXPECT_THAT(
        modTypeLibraryFile::Read(path, 2).Faults,
        ElementsAre("\"" + path + "\" has no type library 2, only 1."));
}

TEST(modTypeLibraryFile, PicksTheLibraryWithTheNumberOfTheResource) {
    const TemporaryFolder folder;
    ProgramBuilder builder;
    builder.Add("TYPELIB", 3, 0, LibraryBytes("german")).Add("TYPELIB", 7, 0, LibraryBytes("old"));
    const std::string path = folder.Write("Two.dll", builder.Build());
    EXPECT_THAT(LibraryTexts(modTypeLibraryFile::Read(path, 3)), ElementsAre("3 GermanLibrary"));
    EXPECT_THAT(LibraryTexts(modTypeLibraryFile::Read(path, 7)), ElementsAre("7 OldLibrary"));
    const TypeLibraryFile first = modTypeLibraryFile::Read(path, 1);
    EXPECT_THAT(first.Libraries, IsEmpty());
    EXPECT_THAT(first.Faults, ElementsAre("\"" + path + "\" has no type library 1, only 3 and 7."));
}

TEST(modTypeLibraryFile, GivesTheIntactLibrariesOfAFileAndNamesTheDamagedOnes) {
    ProgramBuilder builder;
    builder.Add("TYPELIB", 1, 0, LibraryBytes("kinds").substr(0, 900));
    builder.Add("TYPELIB", 2, 0, LibraryBytes("german")).Add("TYPELIB", 5, 0, "no library");
    const TypeLibraryFile file = modTypeLibraryFile::ReadBytes(builder.Build(), "\\lib\\Mixed.ocx");
    EXPECT_THAT(LibraryTexts(file), ElementsAre("2 GermanLibrary"));
    ASSERT_EQ(file.Faults.size(), 2U);
    EXPECT_THAT(
        file.Faults[0],
        testing::StartsWith("\"\\lib\\Mixed.ocx\", type library 1, is damaged: the table "
                            "of types ("));
    EXPECT_THAT(file.Faults[0], HasSubstr("is outside the library ("));
    EXPECT_THAT(
        file.Faults[1],
        testing::StartsWith("\"\\lib\\Mixed.ocx\", type library 5, is damaged: the data "
                            "at offset 0x"));
    EXPECT_THAT(file.Faults[1], testing::EndsWith(" has an unknown format."));
    EXPECT_FALSE(file.IsOther);
}

TEST(modTypeLibraryFile, SaysNothingOfDamagedLibrariesThatNobodyAskedFor) {
    const TemporaryFolder folder;
    ProgramBuilder builder;
    builder.Add("TYPELIB", 1, 0, "no library").Add("TYPELIB", 2, 0, LibraryBytes("german"));
    const std::string path = folder.Write("Mixed.dll", builder.Build());
    EXPECT_THAT(modTypeLibraryFile::Read(path, 2).Faults, IsEmpty());
    EXPECT_THAT(modTypeLibraryFile::Read(path, 1).Faults, ElementsAre(HasSubstr("library 1")));
}

TEST(modTypeLibraryFile, TellsFilesOfOtherKindsByASentence) {
    std::string sixteenBit = ProgramBuilder().Build();
    sixteenBit.replace(0x80, 2, "NE");
    std::string dos = ProgramBuilder().Build();
    PutDoubleWord(dos, 0x3C, 0);
    struct Row {
        std::string Bytes;
        std::string_view Fault;
    };
    const Row rows[] = {
        {"", "\"x\" is neither a type library nor a program."},
        {"Attribute VB_Name = \"a\"", "\"x\" is neither a type library nor a program."},
        {sixteenBit, "\"x\" is a 16-bit program, whose type libraries cannot be read."},
        {dos, "\"x\" is a DOS program, which holds no type library."},
        {ProgramBuilder().Build(), "\"x\" is a program without type libraries."},
        {ProgramBuilder().Add("ICON", 1, 0, "i").Build(),
         "\"x\" is a program without type libraries."},
    };
    for (const Row& row : rows) {
        const TypeLibraryFile file = modTypeLibraryFile::ReadBytes(row.Bytes, "x");
        EXPECT_TRUE(file.IsOther) << row.Fault;
        EXPECT_THAT(file.Faults, ElementsAre(std::string(row.Fault)));
        EXPECT_THAT(file.Libraries, IsEmpty());
    }
}

TEST(modTypeLibraryFile, TellsAFileThatCannotBeOpened) {
    const TemporaryFolder folder;
    const std::string missing = folder.Path("Missing.tlb");
    const TypeLibraryFile file = modTypeLibraryFile::ReadAll(missing);
    EXPECT_THAT(file.Faults, ElementsAre(HasSubstr(missing)));
    EXPECT_FALSE(file.IsOther);
    EXPECT_THAT(
        modTypeLibraryFile::Read("C:\\WINDOWS\\stdole2.tlb", 1).Faults,
        ElementsAre(HasSubstr("C:\\WINDOWS\\stdole2.tlb")));
    EXPECT_THAT(
        modTypeLibraryFile::ReadAll(folder.Path()).Faults, ElementsAre(HasSubstr(folder.Path())));
}

TEST(modTypeLibraryFile, DoesNotReadAFileOfMoreThan256Megabytes) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("Large.dll", "MZ");
    std::filesystem::resize_file(
        folder.HostPath() / "Large.dll",
        modTypeLibraryFile::kLargestFile + 1);  // takes no room on disk
    EXPECT_THAT(
        modTypeLibraryFile::ReadAll(path).Faults,
        ElementsAre("\"" + path + "\" is not read: it has more than 256 MB."));
}

TEST(modTypeLibraryFile, RefusesLibrariesThatAreTogetherLargerThanTheFile) {
    const std::string library = LibraryBytes("kinds");
    ProgramBuilder builder;
    builder.Add("TYPELIB", 1, 0, library).Add("TYPELIB", 2, 0, "second");
    builder.Add("TYPELIB", 3, 0, "third");
    std::string bytes = builder.Build();
    const std::uint32_t address = DoubleWordAt(bytes, bytes.find(library) - 16);
    for (const std::string_view other : {"second", "third"}) {
        const std::size_t data = bytes.find(other) - 16;
        PutDoubleWord(bytes, data, address);
        PutDoubleWord(bytes, data + 4, static_cast<std::uint32_t>(library.size()));
    }
    const TypeLibraryFile file = modTypeLibraryFile::ReadBytes(bytes, "x");
    EXPECT_THAT(
        file.Faults,
        ElementsAre(HasSubstr("its type libraries are larger than the file, from number 2")));
    EXPECT_THAT(LibraryTexts(file), ElementsAre("1 KindsLibrary"));
}

TEST(modTypeLibraryFile, TellsTheFirstTwentyFaultsAndHowManyThereAreMore) {
    ProgramBuilder builder;
    for (std::uint32_t number = 1; number <= 50; ++number) {
        builder.Add("TYPELIB", number, 0, "no library");
    }
    const std::vector<std::string> faults =
        modTypeLibraryFile::ReadBytes(builder.Build(), "x").Faults;
    ASSERT_EQ(faults.size(), 21U);
    EXPECT_THAT(faults[19], HasSubstr("type library 20, is damaged"));
    EXPECT_EQ(faults[20], "\"x\" has 30 more faults.");
}

TEST(modTypeLibraryFile, SplitsTheNumberOfAResourceFromAPath) {
    struct Row {
        std::string_view Path;
        std::string_view File;
        std::int32_t Number;
    };
    const Row rows[] = {
        {"C:\\WINDOWS\\system32\\MSVBVM60.DLL\\3", "C:\\WINDOWS\\system32\\MSVBVM60.DLL", 3},
        {"MSVBVM60.DLL\\3", "MSVBVM60.DLL", 3},
        {"..\\lib\\a.dll/12", "..\\lib\\a.dll", 12},
        {"C:\\WINDOWS\\stdole2.tlb", "C:\\WINDOWS\\stdole2.tlb", 1},
        {"a.dll\\0", "a.dll\\0", 1},
        {"a.dll\\65535", "a.dll", 65535},
        {"a.dll\\65536", "a.dll\\65536", 1},
        {"a.dll\\-3", "a.dll\\-3", 1},
        {"a.dll\\3a", "a.dll\\3a", 1},
        {"a.dll\\", "a.dll\\", 1},
        {"\\3", "\\3", 1},
        {"3", "3", 1},
        {"", "", 1},
    };
    for (const Row& row : rows) {
        const TypeLibraryPlace place = modTypeLibraryFile::PlaceOf(row.Path);
        EXPECT_EQ(place.Path, row.File) << row.Path;
        EXPECT_EQ(place.Number, row.Number) << row.Path;
    }
}

TEST(modTypeLibraryFile, AFileCutAtAnyLengthGivesLibrariesOrASentence) {
    for (const std::string& whole :
         {LibraryBytes("kinds"), LibraryBytes("old"), LibraryBytes("empty"), Program()}) {
        for (std::size_t length = 0; length < whole.size(); ++length) {
            // A copy of its own: a byte read behind the end is one that the sanitizers see.
            const std::string cut = whole.substr(0, length);
            ReadDamaged(cut, "cut at " + std::to_string(length));
        }
    }
}

TEST(modTypeLibraryFile, AHeaderThatIsCutIsToldAsDamage) {
    for (const std::string_view name : {"kinds", "old"}) {
        const std::string whole = LibraryBytes(name);
        for (std::size_t length = 4; length < 0x100; ++length) {
            const TypeLibraryFile file = ReadDamaged(whole.substr(0, length), "header");
            EXPECT_THAT(file.Libraries, IsEmpty()) << name << length;
            EXPECT_FALSE(file.IsOther);
        }
    }
}

TEST(modTypeLibraryFile, AFileWithAnyByteChangedGivesLibrariesOrASentence) {
    std::size_t damaged = 0;
    for (const std::string& whole : {LibraryBytes("kinds"), LibraryBytes("old"), Program()}) {
        for (std::size_t place = 0; place < whole.size(); ++place) {
            for (const int mask : {0x01, 0x80, 0xFF}) {
                std::string changed = whole;
                changed[place] = static_cast<char>(changed[place] ^ mask);
                damaged += ReadDamaged(changed, "byte " + std::to_string(place)).Faults.size();
            }
        }
    }
    EXPECT_GT(damaged, 0U);
}

TEST(modTypeLibraryFile, AFileWithAnyNumberMadeHugeGivesLibrariesOrASentence) {
    for (const std::string& whole : {LibraryBytes("kinds"), LibraryBytes("old"), Program()}) {
        for (std::size_t place = 0; place + 4 <= whole.size(); place += 1) {
            for (const std::uint32_t value : {0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFEU}) {
                std::string changed = whole;
                PutDoubleWord(changed, place, value);
                ReadDamaged(changed, "number at " + std::to_string(place));
            }
        }
    }
}
