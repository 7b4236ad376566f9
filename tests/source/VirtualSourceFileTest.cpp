#include "source/VirtualSourceFile.h"

#include "support/CapturedLog.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace dorvik {
namespace {

using test::CapturedLog;
using test::TemporaryFolder;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class VirtualSourceFileTest : public testing::Test {
protected:
    SourceFileStatus Open(std::string_view bytes) {
        m_folder.Write("x.bas", bytes);
        m_file.SetFilename(m_folder.Path() + "x.bas");
        return m_file.Connect();
    }
    /// The logical lines of a file of that text.
    std::vector<std::string> Logical(std::string_view bytes) {
        EXPECT_EQ(Open(bytes), SourceFileStatus::Good);
        std::vector<std::string> lines;
        for (SourceLine line; m_file.GetNextSourceLine(line);) {
            lines.push_back(line.Logical);
        }
        m_file.Disconnect();
        return lines;
    }
    /// The first line of a file of that text.
    SourceLine First(std::string_view bytes) {
        EXPECT_EQ(Open(bytes), SourceFileStatus::Good);
        SourceLine line;
        EXPECT_TRUE(m_file.GetNextSourceLine(line));
        return line;
    }

    CapturedLog m_log;
    TemporaryFolder m_folder;
    VirtualSourceFile m_file;
};

TEST_F(VirtualSourceFileTest, AnEmptyFileConnectsAndHasNoLine) {
    EXPECT_EQ(Open(""), SourceFileStatus::Good);
    EXPECT_EQ(m_file.Size(), 0);
    SourceLine line{"raw", "logical", 3, 4};
    EXPECT_FALSE(m_file.GetNextSourceLine(line));
    EXPECT_EQ(line.Raw, "raw");
    EXPECT_EQ(line.Logical, "logical");
    EXPECT_EQ(line.PhysicalLines, 3);
    EXPECT_EQ(line.RawLength, 4);
}

TEST_F(VirtualSourceFileTest, TheSizeIsTheLengthOnDisk) {
    EXPECT_EQ(Open("x = 1\r\n' \xE9"), SourceFileStatus::Good);
    EXPECT_EQ(m_file.Size(), 10);
}

TEST_F(VirtualSourceFileTest, DigitsInTheFirstColumnGoAndTheRawTextKeepsThem) {
    const SourceLine line = First("100 x = 1\r\n");
    EXPECT_EQ(line.Logical, " x = 1");
    EXPECT_EQ(line.Raw, "100 x = 1");
    EXPECT_EQ(line.RawLength, 9);
    EXPECT_EQ(line.PhysicalLines, 1);
}

TEST_F(VirtualSourceFileTest, ALineNumberBehindABlankStays) {
    EXPECT_THAT(
        Logical(" 100 x = 1\n\t200 y\n300\n4a5"), ElementsAre(" 100 x = 1", "\t200 y", "", "a5"));
}

TEST_F(VirtualSourceFileTest, ThreePhysicalLinesAreJoinedWithOneBlankAtEachJoin) {
    const SourceLine line = First("  Call f(a,  _\n      b, _   \n   c)  \nx = 1\n");
    EXPECT_EQ(line.PhysicalLines, 3);
    EXPECT_EQ(line.Logical, "  Call f(a, b, c)");
    EXPECT_EQ(line.Raw, "  Call f(a,  _\r\n      b, _   \r\n   c)  ");
    EXPECT_EQ(line.RawLength, 14 + 2 + 13 + 2 + 7);
}

TEST_F(VirtualSourceFileTest, AContinuedLastLineEndsTheLogicalLineThere) {
    EXPECT_THAT(Logical("x = 1\ny = _"), ElementsAre("x = 1", "y ="));
    const SourceLine line = First("y = _\n");
    EXPECT_EQ(line.PhysicalLines, 1);
    EXPECT_EQ(line.Raw, "y = _");
}

TEST_F(VirtualSourceFileTest, TwentyFourContinuationsMakeOneLine) {
    std::string text;
    std::string expected = "x = 0";
    for (int number = 0; number < 24; ++number) {
        text += (number == 0 ? "x = 0" : "    + " + std::to_string(number)) + std::string(" _\r\n");
    }
    for (int number = 1; number <= 24; ++number) {
        expected += " + " + std::to_string(number);
    }
    const SourceLine line = First(text + "    + 24\r\n");
    EXPECT_EQ(line.Logical, expected);
    EXPECT_EQ(line.PhysicalLines, 25);
}

TEST_F(VirtualSourceFileTest, ACommentLineThatEndsInAnUnderscoreDoesNotContinue) {
    EXPECT_THAT(
        Logical("' note _\nx = 1\nRem note _\ny = 2\n"),
        ElementsAre("' note _", "x = 1", "Rem note _", "y = 2"));
}

TEST_F(VirtualSourceFileTest, ATrailingCommentThatEndsInAnUnderscoreContinues) {
    EXPECT_THAT(Logical("x = 1 ' note _\ny = 2\n"), ElementsAre("x = 1 ' note y = 2"));
}

TEST_F(VirtualSourceFileTest, ALineWhoseLastIdentifierEndsInAnUnderscoreContinues) {
    EXPECT_THAT(Logical("Call Foo_\ny = 2\n"), ElementsAre("Call Foo y = 2"));
}

TEST_F(VirtualSourceFileTest, ABlankLineBehindAContinuedLineEndsItWithABlank) {
    const SourceLine line = First("x = 1 + _\n\ny = 2\n");
    EXPECT_EQ(line.Logical, "x = 1 + ");
    EXPECT_EQ(line.PhysicalLines, 2);
    EXPECT_EQ(line.Raw, "x = 1 + _\r\n");
}

TEST_F(VirtualSourceFileTest, ALoneUnderscoreJoinsNothingInFrontOfTheNextLine) {
    EXPECT_THAT(Logical("_\n   x = 1\n"), ElementsAre("   x = 1"));
}

TEST_F(VirtualSourceFileTest, TabsAreNeverTrimmed) {
    EXPECT_THAT(Logical("\tx = _\n\ty\t\n"), ElementsAre("\tx = \ty\t"));
    EXPECT_THAT(Logical("x = 1 _\t\ny\n"), ElementsAre("x = 1 _\t", "y"));
}

TEST_F(VirtualSourceFileTest, LinesInFrontOfTheNameAttributeAreDeliveredButNotCounted) {
    ASSERT_EQ(
        Open("VERSION 5.00\nBegin VB.Form f\nEnd\nAttribute VB_Name = \"f\"\n"
             "Attribute VB_Exposed = False\n\nOption Explicit\n"),
        SourceFileStatus::Good);
    const std::pair<std::int32_t, bool> rows[] = {
        {1, false},
        {1, false},
        {1, false},
        {0, false},
        {0, false},
        {1, true},  // the blank line behind the attributes
        {1, true},
    };
    SourceLine line;
    for (const auto& [physicalLines, counting] : rows) {
        ASSERT_TRUE(m_file.GetNextSourceLine(line));
        EXPECT_EQ(line.PhysicalLines, physicalLines) << line.Raw;
        EXPECT_EQ(m_file.LineCountingEnabled(), counting) << line.Raw;
    }
    EXPECT_FALSE(m_file.GetNextSourceLine(line));
}

TEST_F(VirtualSourceFileTest, AFileWithoutTheNameAttributeNeverCounts) {
    ASSERT_EQ(Open("Attribute VB_Exposed = False\nx = 1\n"), SourceFileStatus::Good);
    SourceLine line;
    while (m_file.GetNextSourceLine(line)) {
        EXPECT_FALSE(m_file.LineCountingEnabled());
    }
}

TEST_F(VirtualSourceFileTest, AnAttributeLineInsideAProcedureCountsNoLine) {
    ASSERT_EQ(
        Open("ATTRIBUTE vb_name =\"m\"\nSub a()\nAttribute a.VB_Description = \"x\"\n"
             "AttributeCount = 1\n Attribute x\nEnd Sub\n"),
        SourceFileStatus::Good);
    std::vector<std::int32_t> counts;
    for (SourceLine line; m_file.GetNextSourceLine(line);) {
        counts.push_back(line.PhysicalLines);
        EXPECT_EQ(m_file.LineCountingEnabled(), counts.size() > 1);
    }
    EXPECT_THAT(counts, ElementsAre(0, 1, 0, 0, 1, 1));
}

TEST_F(VirtualSourceFileTest, AnAttributeLineKeepsItsTextAndLength) {
    const SourceLine line = First("Attribute a.VB_Description = \"x\" & _\n  \"y\"\n");
    EXPECT_EQ(line.PhysicalLines, 0);
    EXPECT_EQ(line.Logical, "Attribute a.VB_Description = \"x\" & \"y\"");
    EXPECT_EQ(line.RawLength, 36 + 2 + 5);
}

TEST_F(VirtualSourceFileTest, DisconnectMakesTheSecondReadingBehaveAsTheFirst) {
    const std::string text = "x = 1\nAttribute VB_Name = \"m\"\ny = 2\n";
    for (int reading = 1; reading <= 2; ++reading) {
        ASSERT_EQ(Open(text), SourceFileStatus::Good);
        EXPECT_FALSE(m_file.LineCountingEnabled());
        SourceLine line;
        ASSERT_TRUE(m_file.GetNextSourceLine(line));
        EXPECT_EQ(line.Raw, "x = 1");
        EXPECT_FALSE(m_file.LineCountingEnabled());
        ASSERT_TRUE(m_file.GetNextSourceLine(line));
        ASSERT_TRUE(m_file.GetNextSourceLine(line));
        EXPECT_TRUE(m_file.LineCountingEnabled());
        m_file.Disconnect();
        EXPECT_FALSE(m_file.LineCountingEnabled());
    }
    m_file.Disconnect();
}

TEST_F(VirtualSourceFileTest, ReadingAFileThatIsNotOpenIsLoggedAndGivesFalse) {
    SourceLine line;
    EXPECT_FALSE(m_file.GetNextSourceLine(line));
    EXPECT_THAT(m_log.Lines(), ElementsAre(HasSubstr("VirtualSourceFile::GetNextSourceLine")));
}

TEST_F(VirtualSourceFileTest, ConnectTellsAMissingFileAsAMessage) {
    m_file.SetFilename("Q:\\gone\\x.bas");
    EXPECT_EQ(m_file.Connect(), SourceFileStatus::NotFound);
    EXPECT_THAT(
        m_log.Lines(),
        ElementsAre(testing::MatchesRegex(
            "Failed to open file Q:\\\\gone\\\\x\\.bas - Error (53 File|76 Path) not found")));
}

TEST_F(VirtualSourceFileTest, ConnectLogsAnyOtherErrorAndGivesStatusOne) {
    m_folder.Write("folder.bas\\x.txt", "");
    m_file.SetFilename(m_folder.Path() + "folder.bas");
    EXPECT_EQ(m_file.Connect(), SourceFileStatus::UnexpectedError);
    EXPECT_THAT(m_log.Lines(), ElementsAre(HasSubstr("VirtualSourceFile::Connect")));
}

TEST_F(VirtualSourceFileTest, OnlyTypesWithALayoutSectionHaveOne) {
    const bool expected[] = {false, false, true, true, false, true, true, true, true};
    for (int number = 0; number <= 8; ++number) {
        m_file.SetFileType(static_cast<FileType>(number));
        EXPECT_EQ(m_file.HasLayout(), expected[number]) << number;
        EXPECT_EQ(m_file.HasHeader(), expected[number]) << number;
    }
}

TEST_F(VirtualSourceFileTest, EveryKindOfLineEndIsRead) {
    EXPECT_THAT(Logical("a\r\nb\nc\rd\r\n\r\n\ne"), ElementsAre("a", "b", "c", "d", "", "", "e"));
}

TEST_F(VirtualSourceFileTest, TheRawTextJoinsWithCrLfWhateverEndedTheLines) {
    EXPECT_EQ(First("a _\rb _\nc\r\n").Raw, "a _\r\nb _\r\nc");
}

TEST_F(VirtualSourceFileTest, NulsArePartOfTheirLineAndHideNoneBehindThem) {
    std::string text = "x = 1\r\n";
    text.append(100, '\0');
    const std::vector<std::string> lines = Logical(text + "\r\ny = 2\r\n");
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[1], std::string(100, ' '));
    EXPECT_EQ(lines[2], "y = 2");
}

TEST_F(VirtualSourceFileTest, TheRawLengthCountsCharacters) {
    EXPECT_EQ(First("' \xE9\xE8 _\n").RawLength, 6);
}

TEST_F(VirtualSourceFileTest, ALineOfTenMegabytesIsOneLine) {
    const std::string text(10 * 1024 * 1024, 'x');
    const SourceLine line = First(text + "\n");
    EXPECT_EQ(line.RawLength, 10 * 1024 * 1024);
    EXPECT_EQ(line.Logical, text);
}

TEST_F(VirtualSourceFileTest, ASingleLineReusesTheBuffers) {
    ASSERT_EQ(Open(std::string(200, 'x') + "\nshort\nshort too\n"), SourceFileStatus::Good);
    SourceLine line;
    ASSERT_TRUE(m_file.GetNextSourceLine(line));
    const char* raw = line.Raw.data();
    const char* logical = line.Logical.data();
    while (m_file.GetNextSourceLine(line)) {
        EXPECT_EQ(line.Raw.data(), raw);
        EXPECT_EQ(line.Logical.data(), logical);
    }
}

TEST_F(VirtualSourceFileTest, AnEventItemAlreadyThereIsNotAddedAgainAndNothingIsRaised) {
    EXPECT_EQ(m_file.EventItems().Count(), 0);
    EXPECT_FALSE(m_file.HasEventItem("cmdOK"));
    m_file.AddEventItem("Form");
    m_file.AddEventItem("cmdOK");
    m_file.AddEventItem("CMDok");
    ASSERT_EQ(m_file.EventItems().Count(), 2);
    EXPECT_EQ(m_file.EventItems().Key(2), "cmdOK");
    EXPECT_EQ(m_file.EventItems().Item(2), "cmdOK");
    EXPECT_TRUE(m_file.EventItems().Contains("CmdOk"));
    EXPECT_TRUE(m_file.HasEventItem("CmdOk"));
    EXPECT_FALSE(m_file.HasEventItem(""));
    EXPECT_THAT(m_log.Lines(), IsEmpty());
}

TEST_F(VirtualSourceFileTest, WhatHidesAStatementIsABlankInTheLogicalTextAndStaysInTheRawOne) {
    const SourceLine line = First("\fx = 1:\xA0Stop _\r\n\xA0y\r\n");
    EXPECT_EQ(line.Logical, " x = 1: Stop y");
    EXPECT_EQ(line.Raw, "\fx = 1:\xC2\xA0Stop _\r\n\xC2\xA0y");
    EXPECT_EQ(line.RawLength, 18);
    EXPECT_EQ(line.PhysicalLines, 2);
}

TEST_F(VirtualSourceFileTest, PageBreakInFrontOfACommentThatEndsInAnUnderscoreContinuesNothing) {
    EXPECT_THAT(Logical("\f' page _\r\nStop\r\n"), ElementsAre(" ' page _", "Stop"));
}

TEST_F(VirtualSourceFileTest, PhysicalLinesAreCountedWhateverCountsForTheReview) {
    Open("Attribute VB_Name = \"x\"\r\na _\r\nb\r\n\r\n");
    SourceLine line;
    m_file.GetNextSourceLine(line);
    EXPECT_EQ(m_file.PhysicalLine(), 1);
    m_file.GetNextSourceLine(line);
    EXPECT_EQ(m_file.PhysicalLine(), 3);
    m_file.GetNextSourceLine(line);
    EXPECT_EQ(m_file.PhysicalLine(), 4);
    EXPECT_FALSE(m_file.GetNextSourceLine(line));
    EXPECT_FALSE(m_file.ReadingFailed());
    m_file.Disconnect();
    m_file.Connect();
    EXPECT_EQ(m_file.PhysicalLine(), 0);
}

TEST_F(VirtualSourceFileTest, FailureWhileALineIsReadIsToldFromTheEndOfTheFile) {
    Open("a\r\nb\r\n");
    SourceLine line;
    EXPECT_TRUE(m_file.GetNextSourceLine(line));
    m_file.Disconnect();  // nothing to read from any more
    EXPECT_FALSE(m_file.GetNextSourceLine(line));
    EXPECT_TRUE(m_file.ReadingFailed());
    m_file.Connect();
    EXPECT_FALSE(m_file.ReadingFailed());
}

TEST_F(VirtualSourceFileTest, FileThatHoldsNoTextCannotBeConnectedAndSaysWhy) {
    EXPECT_EQ(Open(std::string(1000, '\0')), SourceFileStatus::UnexpectedError);
    EXPECT_THAT(m_file.Unreadable(), HasSubstr("binary"));
    EXPECT_THAT(m_log.Lines(), testing::Contains(HasSubstr("321 - Invalid file format")));
    EXPECT_EQ(Open("x\r\n"), SourceFileStatus::Good);
    EXPECT_EQ(m_file.Unreadable(), "");
}

TEST_F(VirtualSourceFileTest, FirstLayoutFaultStaysUntilTheFileIsOpenedAgain) {
    Open("x\r\n");
    m_file.SetLayoutFault({7, "there is something wrong"});
    m_file.SetLayoutFault({9, "there is more"});
    ASSERT_TRUE(m_file.FoundLayoutFault().has_value());
    EXPECT_EQ(m_file.FoundLayoutFault()->Clause(), "in line 7 there is something wrong");
    m_file.Connect();
    EXPECT_FALSE(m_file.FoundLayoutFault().has_value());
}

TEST_F(VirtualSourceFileTest, EventItemsFoldAllLettersNotOnlyAsciiOnes) {
    m_file.AddEventItem("txtGr\xC3\xB6\xC3\x9F"
                        "e");
    EXPECT_TRUE(m_file.HasEventItem("TXTGR\xC3\x96\xC3\x9F"
                                    "E"));
}

TEST_F(VirtualSourceFileTest, AFormOfFiveThousandControlsFillsItsEventItems) {
    for (int number = 0; number < 5000; ++number) {
        m_file.AddEventItem("control" + std::to_string(number));
        m_file.AddEventItem("array" + std::to_string(number % 10));
    }
    EXPECT_EQ(m_file.EventItems().Count(), 5010);
    EXPECT_TRUE(m_file.HasEventItem("Control4999"));
}

TEST_F(VirtualSourceFileTest, StartsWithNothingSetAndKeepsWhatIsSet) {
    EXPECT_EQ(m_file.Name(), "");
    EXPECT_EQ(m_file.FileType(), FileType::None);
    EXPECT_EQ(m_file.Size(), 0);
    EXPECT_EQ(m_file.Project(), nullptr);
    EXPECT_EQ(m_file.ReviewStatus(), SourceFileStatus::Good);
    ASSERT_NE(m_file.FileStats(), nullptr);
    m_file.SetName("modA");
    m_file.SetReviewStatus(SourceFileStatus::NotFound);
    EXPECT_EQ(m_file.Name(), "modA");
    EXPECT_EQ(m_file.ReviewStatus(), SourceFileStatus::NotFound);
    m_file.Properties().Add("X", Variant(1), false);
    EXPECT_TRUE(m_file.FileStats()->Properties().Contains("x"));
}

}  // namespace
}  // namespace dorvik
