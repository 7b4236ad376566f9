#include "cli/CommandLineFixture.h"
#include "support/LineText.h"

#include <gmock/gmock.h>

#include <unistd.h>

namespace dorvik::test {

namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

namespace fs = std::filesystem;

/// Bytes without any pattern, the same in every run.
std::string Noise(std::size_t length) {
    std::string bytes(length, '\0');
    std::uint32_t state = 12345;
    for (char& byte : bytes) {
        state = state * 1664525U + 1013904223U;
        byte = static_cast<char>(state >> 24U);
    }
    return bytes;
}

class BadInput : public CommandLineFixture {
protected:
    /// A project of a module that is in order and one more file, and a review of it.
    ProgramResult ReviewWith(const std::string& projectLine) const {
        WriteLines(
            "Good.bas", {"Attribute VB_Name = \"Good\"", "Sub A()", "    DoEvents", "End Sub"});
        WriteLines(
            "P.vbp",
            {"Type=Exe", projectLine, "Module=Good; Good.bas", "Name=\"P\"", "Title=\"x\""});
        const ProgramResult result = Run({"review", "P.vbp", "--quiet", "--conventions", "uk"});
        ExpectClearSentences(result);
        return result;
    }
    std::string GoodFileIsReviewed() const {
        return Query(
            "Dorvik/P_DORVIK.mdb", "SELECT LineNum FROM Violations WHERE Title = 'No DoEvents'");
    }
};

TEST_F(BadInput, AFolderWhereASourceFileIsExpectedCostsOnlyThatFile) {
    fs::create_directory(Work("sub"));
    for (const char* line : {"Module=Sub; sub", "Form=sub"}) {
        const ProgramResult result = ReviewWith(line);
        EXPECT_EQ(result.ExitCode, 3);
        EXPECT_THAT(
            result.Errors(),
            ElementsAre("dorvik: the source file '" + Work("sub").string() + "' cannot be opened"));
        EXPECT_EQ(GoodFileIsReviewed(), "2");
    }
}

TEST_F(BadInput, AFolderWhereAGroupNamesAProjectCostsOnlyThatProject) {
    fs::create_directory(Work("Folder.vbp"));
    WriteModuleProject("Good", "    x = 1");
    WriteLines("Both.vbg", {"VBGROUP 5.0", "StartupProject=Folder.vbp", "Project=Good.vbp"});
    const ProgramResult result = Run({"review", "Both.vbg"});
    EXPECT_EQ(result.ExitCode, 3);
    EXPECT_THAT(
        result.Errors(),
        ElementsAre(
            "dorvik: the project file '" + Work("Folder.vbp").string() + "' cannot be opened"));
    EXPECT_TRUE(Exists("Dorvik/Good_DORVIK.mdb"));
}

TEST_F(BadInput, APathBelowAFileIsAMissingFile) {
    const ProgramResult result = ReviewWith("Module=Below; Good.bas\\Below.bas");
    EXPECT_EQ(result.ExitCode, 3);
    EXPECT_THAT(
        result.Errors(), ElementsAre(AllOf(HasSubstr("Below.bas"), HasSubstr("does not exist"))));
    EXPECT_EQ(GoodFileIsReviewed(), "2");
}

TEST_F(BadInput, AnUnreadableFileCostsOnlyThatFile) {
    if (::geteuid() == 0) {
        GTEST_SKIP() << "nothing is unreadable for this user";
    }
    WriteLines("Locked.bas", {"Attribute VB_Name = \"Locked\""});
    fs::permissions(Work("Locked.bas"), fs::perms::none);
    const ProgramResult result = ReviewWith("Module=Locked; Locked.bas");
    EXPECT_EQ(result.ExitCode, 3);
    EXPECT_THAT(
        result.Errors(),
        ElementsAre(AllOf(HasSubstr("Locked.bas"), HasSubstr("cannot be opened"))));
    EXPECT_EQ(GoodFileIsReviewed(), "2");
}

TEST_F(BadInput, AFileThatIsNoPlainFileCannotBeOpened) {
    fs::create_symlink("/dev/zero", Work("Endless.bas"));
    const ProgramResult result = ReviewWith("Module=Endless; Endless.bas");
    EXPECT_EQ(result.ExitCode, 3);
    EXPECT_THAT(
        result.Errors(),
        ElementsAre(AllOf(HasSubstr("Endless.bas"), HasSubstr("cannot be opened"))));
    EXPECT_EQ(GoodFileIsReviewed(), "2");
}

TEST_F(BadInput, AnEmptyProjectFileIsAProjectWithoutFiles) {
    WriteBytes("Empty.vbp", "");
    const ProgramResult result = Run({"review", "Empty.vbp"});
    EXPECT_EQ(result.ExitCode, 0);
    EXPECT_THAT(result.Error, IsEmpty());
    EXPECT_THAT(result.Output, HasSubstr("0 files, 0 lines"));
    EXPECT_EQ(Query("Dorvik/Empty_DORVIK.mdb", "SELECT COUNT(*) FROM SourceFiles"), "1");
}

TEST_F(BadInput, AnEmptySourceFileIsReviewedAsOne) {
    WriteBytes("Empty.bas", "");
    EXPECT_EQ(ReviewWith("Module=Empty; Empty.bas").ExitCode, 0);
    EXPECT_EQ(
        Query(
            "Dorvik/P_DORVIK.mdb",
            "SELECT CyclomaticComplexity FROM SourceFiles WHERE Name='Empty'"),
        "1");
    EXPECT_EQ(GoodFileIsReviewed(), "2");
}

struct NoSourceRow {
    const char* Name;
    const char* ProjectLine;
    std::string Bytes;
};

void PrintTo(const NoSourceRow& row, std::ostream* out) {
    *out << row.Name;
}

/// Files that are no sources at all, under the extension of one: they are read as text and reviewed.
class NoSource : public BadInput, public ::testing::WithParamInterface<NoSourceRow> {};

TEST_P(NoSource, IsReviewedAsTextAndDisturbsNothing) {
    const std::string line = GetParam().ProjectLine;
    WriteBytes(line.substr(line.find("; ") + 2), GetParam().Bytes);
    const ProgramResult result = ReviewWith(line);
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_EQ(GoodFileIsReviewed(), "2");
    EXPECT_EQ(Query("Dorvik/P_DORVIK.mdb", "SELECT COUNT(*) FROM SourceFiles"), "3");
    EXPECT_THAT(Bytes("Dorvik/P_DORVIK.txt"), HasSubstr("Project reviewed successfully."));
}

const std::string kFormStart =
    "VERSION 5.00\r\nBegin VB.Form F \r\n   Caption = \"x\"\r\n   Begin VB.Label L \r\n";

INSTANTIATE_TEST_SUITE_P(
    Files,
    NoSource,
    ::testing::Values(
        NoSourceRow{"BinaryModule", "Module=X; X.bas", Noise(200000)},
        NoSourceRow{"BinaryForm", "Form=X; X.frm", Noise(200000)},
        NoSourceRow{"BinaryLayout", "Form=X; X.frm", kFormStart + Noise(200000)},
        NoSourceRow{"NothingButNul", "Module=X; X.bas", std::string(100000, '\0')},
        NoSourceRow{
            "PaddedWithNul",
            "Module=X; X.bas",
            "Attribute VB_Name = \"X\"\r\nSub A()\r\nEnd Sub\r\n" + std::string(4096, '\0')},
        NoSourceRow{"NothingButTabs", "Class=X; X.cls", std::string(5000, '\t')},
        NoSourceRow{"NothingButQuotes", "Class=X; X.cls", std::string(5000, '"')},
        NoSourceRow{
            "NothingButColons",
            "Module=X; X.bas",
            "Sub A()\r\n" + std::string(5000, ':') + "\r\nEnd Sub\r\n"},
        NoSourceRow{"NothingButUnderscores", "Module=X; X.bas", std::string(5000, '_')},
        NoSourceRow{"ATable", "Module=X; X.bas", "Name;Price\r\nBolt;0,12\r\nNut;0,05\r\n"},
        NoSourceRow{
            "AScript", "Module=X; X.bas", "@echo off\r\ncopy *.frm a:\\\r\ngoto end\r\n:end\r\n"},
        NoSourceRow{
            "AProjectFileUnderFrm",
            "Form=X; X.frm",
            "Type=Exe\r\nForm=Other.frm\r\nModule=Mod; Mod.bas\r\nName=\"X\"\r\n"},
        NoSourceRow{
            "MergeMarkersInAModule",
            "Module=X; X.bas",
            "Attribute VB_Name = \"X\"\r\nSub A()\r\n<<<<<<< HEAD\r\n    x = 1\r\n=======\r\n    x "
            "= 2\r\n"
            ">>>>>>> theirs\r\nEnd Sub\r\n"},
        NoSourceRow{
            "MergeMarkersInALayout",
            "Form=X; X.frm",
            kFormStart +
                "<<<<<<< HEAD\r\n      Left = 1\r\n=======\r\n      Left = 2\r\n>>>>>>> b\r\n"
                "   End\r\nEnd\r\nAttribute VB_Name = \"F\"\r\n"},
        NoSourceRow{"ALayoutThatNeverEnds", "Form=X; X.frm", kFormStart},
        NoSourceRow{"ALayoutOfEndsOnly", "Form=X; X.frm", "End\r\nEnd\r\nEnd\r\n"},
        NoSourceRow{
            "BodiesThatNeverEnd",
            "Module=X; X.bas",
            "Attribute VB_Name = \"X\"\r\nPrivate Type T\r\n  a As Long\r\nPrivate Enum E\r\n  "
            "b\r\n"},
        NoSourceRow{
            "EndsWithoutBegins",
            "Module=X; X.bas",
            "End Sub\r\nEnd Type\r\nEnd Enum\r\nEnd Property\r\nAttribute VB_Name = "
            "\"X\"\r\nEnd\r\n"}),
    [](const auto& row) { return row.param.Name; });

TEST_F(BadInput, AFileThatTheParserGivesUpOnIsToldAndTheNextOneReviewed) {
    // A control's type must have a full stop.
    WriteLines(
        "X.frm",
        {"VERSION 5.00",
         "Begin VB.Form X",
         "   Begin Label L",
         "   End",
         "End",
         "Attribute VB_Name = \"X\""});
    const ProgramResult result = ReviewWith("Form=X; X.frm");
    EXPECT_EQ(result.ExitCode, 3);
    EXPECT_THAT(result.Errors(), ElementsAre(AllOf(HasSubstr("X.frm"), HasSubstr("only in part"))));
    EXPECT_EQ(GoodFileIsReviewed(), "2");
    EXPECT_THAT(
        Bytes("Dorvik/P_DORVIK.txt"),
        HasSubstr("X.frm review incomplete due to unexpected error."));
}

TEST_F(BadInput, AProcedureLeftOpenReachesIntoTheNextFileUntilThatOneIsClosedIncomplete) {
    WriteLines("X.bas", {"Attribute VB_Name = \"X\"", "Sub Open()", "    x = 1"});
    const ProgramResult result = ReviewWith("Module=X; X.bas");
    EXPECT_EQ(result.ExitCode, 3);
    EXPECT_THAT(
        result.Errors(), ElementsAre(AllOf(HasSubstr("Good.bas"), HasSubstr("only in part"))));
}

TEST_F(BadInput, BinaryDataAsAProjectEndsWithAClearWord) {
    WriteBytes("Noise.vbp", Noise(100000));
    WriteBytes("Nul.vbp", std::string(5000, '\0'));
    WriteModuleProject("Good", "    x = 1");
    const ProgramResult result = Run({"review", "Noise.vbp", "Nul.vbp", "Good.vbp"});
    EXPECT_THAT(result.ExitCode, ::testing::AnyOf(0, 3));
    ExpectClearSentences(result);
    EXPECT_TRUE(Exists("Dorvik/Good_DORVIK.mdb"));
}

TEST_F(BadInput, AProjectFilePaddedWithNulIsReadUpToThePadding) {
    WriteModuleProject("Pad", "    End");
    WriteBytes("Pad.vbp", Bytes("Pad.vbp") + std::string(4096, '\0'));
    EXPECT_EQ(Run({"review", "Pad.vbp"}).ExitCode, 1);
}

TEST_F(BadInput, MergeMarkersInAProjectFileThatRepeatAKeyAreToldWithTheFile) {
    WriteLines(
        "M.vbp", {"<<<<<<< a", "Type=Exe", "=======", "Type=OleDll", ">>>>>>> b", "Name=\"M\""});
    const ProgramResult result = Run({"review", "M.vbp"});
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_THAT(result.Errors(), ElementsAre(HasSubstr(Work("M.vbp").string())));
}

TEST_F(BadInput, AProjectThatNamesItselfAsASourceFileIsReviewed) {
    for (const char* line : {"Module=P; P.vbp", "Form=P.vbp", "Class=P; .\\P.vbp"}) {
        const ProgramResult result = ReviewWith(line);
        EXPECT_THAT(result.ExitCode, ::testing::AnyOf(0, 3)) << line << ": " << result.Error;
        EXPECT_EQ(GoodFileIsReviewed(), "2") << line;
    }
}

TEST_F(BadInput, LinesWithoutAUsableFileNameAreMissingFiles) {
    for (const char* line :
         {"Module=X; ",
          "Module=X;",
          "Module=X; \\",
          "Module=X; ..\\",
          "Class=X; *.cls",
          "Form=?.frm"}) {
        const ProgramResult result = ReviewWith(line);
        EXPECT_EQ(result.ExitCode, 3) << line;
        EXPECT_EQ(result.Errors().size(), 1U) << line << ": " << result.Error;
        EXPECT_EQ(GoodFileIsReviewed(), "2") << line;
    }
}

TEST_F(BadInput, AGroupThatNamesItselfIsToldAndNotFollowed) {
    WriteLines("Loop.vbg", {"VBGROUP 5.0", "Project=Loop.vbg"});
    const ProgramResult result = Run({"review", "Loop.vbg"});
    EXPECT_THAT(result.ExitCode, ::testing::AnyOf(0, 2, 3));
    ExpectClearSentences(result);
}

TEST_F(BadInput, AFolderThatHoldsALinkToItselfIsSearchedOnce) {
    WriteModuleProject("Good", "    x = 1");
    fs::create_directory_symlink(Work(""), Work("again"));
    const ProgramResult result = Run({"review", "."});
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_EQ(result.Output.find("Verdict"), result.Output.rfind("Verdict"));
}

TEST_F(BadInput, AFailingProjectNeverCostsAnothersResults) {
    WriteModuleProject("First", "    DoEvents");
    WriteModuleProject("Last", "    DoEvents");
    WriteLines("Twice.vbp", {"Module=A; First.bas", "Module=A; Last.bas"});
    WriteBytes("Dorvik/Blocked_DORVIK.mdb/in the way", "");
    WriteModuleProject("Blocked", "    DoEvents");
    const ProgramResult result =
        Run({"review", "First.vbp", "Twice.vbp", "Blocked.vbp", "Gone/../Last.vbp", "Last.vbp"});
    EXPECT_EQ(result.ExitCode, 3);
    ExpectClearSentences(result);
    EXPECT_THAT(result.Error, AllOf(HasSubstr("Twice.vbp"), HasSubstr("Blocked")));
    for (const char* results : {"Dorvik/First_DORVIK.mdb", "Dorvik/Last_DORVIK.mdb"}) {
        EXPECT_EQ(Query(results, "SELECT COUNT(*) FROM Violations WHERE Title='No DoEvents'"), "1");
    }
}

}  // namespace

}  // namespace dorvik::test
