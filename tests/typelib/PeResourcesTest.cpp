#include "typelib/PeResources.h"

#include "typelib/LibraryFixture.h"
#include "typelib/ProgramBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace dorvik;
using namespace dorvik::test;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

/// "3/1033=text" for each resource of the type TYPELIB, then the faults.
std::vector<std::string> ResourceTexts(const std::string& bytes) {
    std::vector<std::string> faults;
    std::vector<std::string> texts;
    PeResources program(ByteView(bytes, "the file"));
    for (const PeResource& resource : program.OfType("TYPELIB", faults)) {
        texts.push_back(
            std::to_string(resource.Number) + "/" + std::to_string(resource.Language) + "=" +
            bytes.substr(resource.Start, resource.Size));
    }
    texts.insert(texts.end(), faults.begin(), faults.end());
    return texts;
}

/// Where the tree of resources begins in what the builder builds.
constexpr std::size_t kTree = 0x410;

}  // namespace

TEST(PeResources, FindsAllNumbersAndLanguagesInProgramsOfBothWidths) {
    for (const auto width : {ProgramBuilder::Width::Bits32, ProgramBuilder::Width::Bits64}) {
        ProgramBuilder builder(width);
        builder.Add("TYPELIB", 3, 0x409, "c").Add("TYPELIB", 1, 0x407, "b");
        builder.Add("TYPELIB", 1, 0, "a").Add("REGISTRY", 1, 0, "other");
        EXPECT_THAT(ResourceTexts(builder.Build()), ElementsAre("1/0=a", "1/1031=b", "3/1033=c"));
    }
}

TEST(PeResources, FindsATypeInWhateverCaseItsNameIs) {
    EXPECT_THAT(
        ResourceTexts(ProgramBuilder().Add("TypeLib", 2, 0, "x").Build()), ElementsAre("2/0=x"));
}

TEST(PeResources, PassesOverResourcesWithNames) {
    ProgramBuilder builder;
    builder.AddNamed("TYPELIB", "FIRST", "n").Add("TYPELIB", 2, 0, "x");
    EXPECT_THAT(ResourceTexts(builder.Build()), ElementsAre("2/0=x"));
}

TEST(PeResources, FindsNothingInAProgramWithoutResources) {
    EXPECT_THAT(ResourceTexts(ProgramBuilder().Build()), IsEmpty());
    EXPECT_THAT(ResourceTexts(ProgramBuilder().Add("TYPELIBS", 1, 0, "x").Build()), IsEmpty());
    EXPECT_THAT(ResourceTexts(ProgramBuilder().Add("TYPELIX", 1, 0, "x").Build()), IsEmpty());
}

TEST(PeResources, TellsKindsOfProgramsApart) {
    using Kind = PeResources::FileKind;
    const auto kindOf = [](std::string_view mark) {
        std::string bytes = ProgramBuilder().Build();
        bytes.replace(0x80, 4, mark);
        return PeResources::KindOf(ByteView(bytes, "the file"));
    };
    EXPECT_EQ(kindOf(std::string_view("PE\0\0", 4)), Kind::Pe);
    EXPECT_EQ(kindOf("NE\x05\x3C"), Kind::WindowsProgram16Bit);
    EXPECT_EQ(kindOf(std::string_view("LE\0\0", 4)), Kind::OtherProgram);
    EXPECT_EQ(kindOf("PEEP"), Kind::OtherProgram);
    std::string dos = ProgramBuilder().Build();
    PutDoubleWord(dos, 0x3C, 0);
    EXPECT_EQ(PeResources::KindOf(ByteView(dos, "the file")), Kind::DosProgram);
    EXPECT_EQ(PeResources::KindOf(ByteView("Option Explicit", "the file")), Kind::NoProgram);
}

TEST(PeResources, KeepsTheIntactResourcesBesideADamagedOne) {
    ProgramBuilder builder;
    builder.Add("TYPELIB", 1, 0, "first").Add("TYPELIB", 2, 0, "second");
    std::string bytes = builder.Build();
    const std::size_t data = bytes.find("first") - 16;
    PutDoubleWord(bytes, data, 0x9000);
    EXPECT_THAT(
        ResourceTexts(bytes),
        ElementsAre(
            "2/0=second",
            HasSubstr("leads to the address 0x9000, which no section "
                      "holds")));
    PutDoubleWord(bytes, data, 0x2000);
    PutDoubleWord(bytes, data + 4, 0x7FFFFFFF);
    EXPECT_THAT(
        ResourceTexts(bytes),
        ElementsAre(
            "2/0=second",
            HasSubstr("a resource (2147483647 bytes at offset 0x410) "
                      "is outside the file")));
}

TEST(PeResources, EndsInACircleOfDirectories) {
    std::string bytes = ProgramBuilder().Add("TYPELIB", 1, 0, "x").Build();
    // The directory of the type is the root again, whose names are no numbers.
    PutDoubleWord(bytes, kTree + 16 + 4, 0x80000000);
    EXPECT_THAT(ResourceTexts(bytes), IsEmpty());
    // The directory of the languages is that of the numbers.
    bytes = ProgramBuilder().Add("TYPELIB", 1, 0, "x").Build();
    const std::uint32_t numbers = DoubleWordAt(bytes, kTree + 16 + 4);
    PutDoubleWord(bytes, kTree + (numbers & 0x7FFFFFFF) + 16 + 4, numbers);
    EXPECT_THAT(ResourceTexts(bytes), ElementsAre(HasSubstr("has a fourth level at offset")));
}

TEST(PeResources, LooksAtNoMoreEntriesThanAProgramMayHave) {
    ProgramBuilder builder;
    for (std::uint32_t number = 1; number <= 30'000; ++number) {
        builder.Add("TYPELIB", number, 0, "");
    }
    EXPECT_THAT(
        ResourceTexts(builder.Build()), ElementsAre(HasSubstr("has more than 20000 entries")));
}

TEST(PeResources, RefusesHeadersThatLeadNowhere) {
    struct Row {
        std::size_t Place;
        std::uint32_t Value;
        std::string_view Fault;
    };
    const Row rows[] = {
        {0x3C, 0x7FFFFFFF, "offset 0x7FFFFFFF leads outside the file"},
        {0x80 + 4, 0x61014C, "declares 97 sections"},
        {0x80 + 24, 0x107, "the program's header at offset 0x98 has the unknown mark 0x107"},
        {0x98 + 96 + 16, 0x5000, "leads to the address 0x5000, which no section holds"},
        {0x98 + 96 + 128 + 40 + 20, 0x100000, "the section of the resources ("},
    };
    for (const Row& row : rows) {
        std::string bytes = ProgramBuilder().Add("TYPELIB", 1, 0, "x").Build();
        PutDoubleWord(bytes, row.Place, row.Value);
        EXPECT_THAT(OnlyFault(bytes), HasSubstr(row.Fault));
    }
}
