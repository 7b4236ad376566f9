#include "cli/CommandLineFixture.h"
#include "support/LineText.h"

#include <gmock/gmock.h>

#include <unistd.h>

namespace dorvik::test {

namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

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

/// Files that are no sources, but text of some kind, under the extension of one: they are reviewed.
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
            "ATrailingCtrlZ",
            "Module=X; X.bas",
            "Attribute VB_Name = \"X\"\r\nSub A()\r\nEnd Sub\r\n\x1A"},
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

std::string Wide(std::string_view bytes, const std::string& before, const std::string& behind) {
    std::string text;
    for (const char byte : bytes) {
        text += before + byte + behind;
    }
    return text;
}

/// Files whose text cannot be read: they are named with the reason, and pass nothing.
class NoText : public BadInput, public ::testing::WithParamInterface<NoSourceRow> {};

TEST_P(NoText, IsNamedAndNotReviewedAndCostsOnlyThatFile) {
    const std::string line = GetParam().ProjectLine;
    WriteBytes(line.substr(line.find_first_of(";=") + 1), GetParam().Bytes);
    const std::string name = line.substr(line.size() - 5);
    WriteBytes(name, GetParam().Bytes);
    const ProgramResult result = ReviewWith(line);
    EXPECT_EQ(result.ExitCode, 3);
    const bool isText = std::string(GetParam().Name).starts_with("Utf32");
    EXPECT_THAT(
        result.Errors(),
        ElementsAre(
            "dorvik: the source file '" + Work(name).string() +
            (isText ? "' is UTF-32 text; save it as UTF-8, as UTF-16 or in its Windows code page"
                    : "' holds binary data, not text")));
    EXPECT_EQ(GoodFileIsReviewed(), "2");
    EXPECT_THAT(
        Run({"results", "Dorvik/P_DORVIK.mdb", "summary"}).Output,
        HasSubstr("Verdict     none: 1 of 2 files was not reviewed completely"));
    EXPECT_THAT(Bytes("Dorvik/P_DORVIK.txt"), HasSubstr("1 error(s) reviewing source files."));
}

const std::string kModule = "Attribute VB_Name = \"X\"\r\nSub A()\r\n    DoEvents\r\nEnd Sub\r\n";

INSTANTIATE_TEST_SUITE_P(
    Files,
    NoText,
    ::testing::Values(
        NoSourceRow{"BinaryModule", "Module=X; X.bas", Noise(200000)},
        NoSourceRow{"BinaryForm", "Form=X.frm", Noise(200000)},
        NoSourceRow{"BinaryLayout", "Form=X; X.frm", kFormStart + Noise(200000)},
        NoSourceRow{"NothingButNul", "Module=X; X.bas", std::string(100000, '\0')},
        NoSourceRow{
            "Utf32LittleWithMark",
            "Module=X; X.bas",
            std::string("\xFF\xFE\0\0", 4) + Wide(kModule, "", std::string(3, '\0'))},
        NoSourceRow{
            "Utf32BigWithMark",
            "Module=X; X.bas",
            std::string("\0\0\xFE\xFF", 4) + Wide(kModule, std::string(3, '\0'), "")},
        NoSourceRow{"Utf32Little", "Module=X; X.bas", Wide(kModule, "", std::string(3, '\0'))},
        NoSourceRow{"Utf32Big", "Module=X; X.bas", Wide(kModule, std::string(3, '\0'), "")}),
    [](const auto& row) { return row.param.Name; });

TEST_F(BadInput, AProjectFileThatHoldsNoTextIsNamedWithTheReason) {
    WriteBytes("P.vbp", Wide("Type=Exe\r\nName=\"P\"\r\n", "", std::string(3, '\0')));
    for (const char* command : {"review", "events"}) {
        const ProgramResult result = Run({command, "P.vbp"});
        EXPECT_EQ(result.ExitCode, 2) << command;
        EXPECT_THAT(
            result.Errors(),
            ElementsAre(AllOf(HasSubstr(Work("P.vbp").string()), HasSubstr("is UTF-32 text"))));
    }
}

TEST_F(BadInput, WhatPrintsAsABlankInFrontOfAStatementHidesItFromNoRule) {
    using namespace std::string_literals;
    for (const std::string& hiding : {"\f"s, "\0"s, "\xA0"s, " \f\t"s}) {
        WriteModuleProject("H", hiding + "Stop\r\n    x = 1:" + hiding + "Stop");
        const ProgramResult result = Run({"review", "H.vbp", "--quiet", "--conventions", "uk"});
        EXPECT_EQ(
            Query("Dorvik/H_DORVIK.mdb", "SELECT COUNT(*) FROM Violations WHERE Title = 'No Stop'"),
            "2")
            << result.Error;
    }
}

TEST_F(BadInput, APageBreakInFrontOfAProcedureHidesItNotFromTheParser) {
    WriteLines("H.bas", {"Attribute VB_Name = \"H\"", "Option Explicit", "\fSub A()", "End Sub"});
    WriteLines("H.vbp", {"Module=H; H.bas", "Name=\"H\""});
    Run({"review", "H.vbp", "--quiet"});
    EXPECT_EQ(Query("Dorvik/H_DORVIK.mdb", "SELECT Name FROM Procedures WHERE Type = 'Sub'"), "A");
}

TEST_F(BadInput, ALayoutThatCannotBeReadOnIsToldWithItsLineAndTheRestIsReviewed) {
    WriteBytes(
        "X.frm",
        kFormStart + "<<<<<<< HEAD\r\n      Left = 1\r\n=======\r\n      Left = 2\r\n>>>>>>> b\r\n"
                     "   End\r\nEnd\r\nAttribute VB_Name = \"F\"\r\n");
    const ProgramResult result = ReviewWith("Form=X; X.frm");
    EXPECT_EQ(result.ExitCode, 3);
    EXPECT_THAT(
        result.Errors(),
        ElementsAre(
            "dorvik: the layout of the source file '" + Work("X.frm").string() +
            "' was read only in part, because in line 5 there is no property of the form 'name = "
            "value'"));
    EXPECT_EQ(GoodFileIsReviewed(), "2");
    EXPECT_EQ(Query("Dorvik/P_DORVIK.mdb", "SELECT COUNT(*) FROM SourceFiles"), "3");
}

TEST_F(BadInput, AFileReviewedInPartPassesNowhere) {
    WriteLines("X.frm", {"Begin VB.Form X", "   Begin Label L", "   End", "End"});
    ReviewWith("Form=X; X.frm");
    const std::string database = "Dorvik/P_DORVIK.mdb";
    EXPECT_THAT(
        Run({"results", database, "summary"}).Output,
        HasSubstr("Verdict     none: 1 of 2 files was not reviewed completely"));
    EXPECT_THAT(
        Run({"results", database, "summary", "--json"}).Output,
        AllOf(HasSubstr("\"unfinishedFiles\": 1"), HasSubstr("\"passed\": false")));
    const std::string files = Run({"results", database, "files"}).Output;
    EXPECT_THAT(LinesOf(files), Contains(AllOf(StartsWith("X.frm"), HasSubstr("not reviewed"))));
    EXPECT_THAT(LinesOf(files), Contains(AllOf(StartsWith("Good.bas"), HasSubstr("passed"))));
    EXPECT_EQ(
        Run({"report", database, "--detailed", "--report-style", "modern", "--reports", "pages"})
            .ExitCode,
        0);
    EXPECT_THAT(Bytes("pages/P_Dorvik.html"), HasSubstr("&nbsp;Incomplete&nbsp;"));
    EXPECT_THAT(Bytes("pages/P_Dorvik.html"), HasSubstr("class=\"error\">Not reviewed</td>"));
    EXPECT_THAT(Bytes("pages/X_X_Detail.html"), HasSubstr("&nbsp;Not reviewed&nbsp;"));
    EXPECT_THAT(Bytes("pages/P_Review.html"), HasSubstr("<p class=\"word\">Incomplete</p>"));
    EXPECT_THAT(Bytes("pages/P_Review.html"), HasSubstr("<li>X.frm: Reviewed only in part</li>"));
}

TEST_F(BadInput, AControlThatSavedAPropertyTwiceIsNamedAndTheNextFormIsReviewedWhole) {
    WriteLines(
        "X.frm",
        {"VERSION 5.00",
         "Begin VB.Form X",
         "   Begin My.Grid G",
         "      Rows = 1",
         "      Rows = 2",
         "   End",
         "End"});
    WriteLines(
        "Y.frm",
        {"VERSION 5.00",
         "Begin VB.Form Y",
         "   Begin VB.Label L",
         "   End",
         "End",
         "Attribute VB_Name = \"Y\"",
         "Sub A()",
         "    Stop",
         "End Sub"});
    const ProgramResult result = ReviewWith("Form=X; X.frm\r\nForm=Y; Y.frm");
    EXPECT_EQ(result.ExitCode, 3);
    const std::string sentence = "dorvik: the layout of the source file '" +
                                 Work("X.frm").string() +
                                 "' was read only in part, because in line 5 the property 'Rows' "
                                 "of 'G' is set twice";
    EXPECT_THAT(result.Errors(), ElementsAre(sentence));
    EXPECT_EQ(
        Query("Dorvik/P_DORVIK.mdb", "SELECT LineNum FROM Violations WHERE Title = 'No Stop'"),
        "2");
    const ProgramResult events = Run({"events", "P.vbp"});
    EXPECT_EQ(events.ExitCode, 3);
    EXPECT_THAT(events.Errors(), ElementsAre(sentence));
    EXPECT_THAT(
        Run({"events", "P.vbp", "--keep-known-faults"}).Errors(),
        ElementsAre(sentence, HasSubstr("Y.frm' could not be read to its end")));
}

TEST_F(BadInput, ALayoutThatNeverEndsIsToldWithItsLastLine) {
    WriteBytes("X.frm", kFormStart);
    const ProgramResult result = ReviewWith("Form=X; X.frm");
    EXPECT_EQ(result.ExitCode, 3);
    EXPECT_THAT(
        result.Errors(),
        ElementsAre(
            AllOf(HasSubstr("X.frm"), HasSubstr("in line 4 the layout ends before 'F' does"))));
    EXPECT_EQ(GoodFileIsReviewed(), "2");
}

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
    EXPECT_THAT(
        result.Errors(),
        ElementsAre(
            "dorvik: the source file '" + Work("X.frm").string() +
            "' was reviewed only in part, because in line 3 the type 'Label' of 'L' names no "
            "library"));
    EXPECT_EQ(GoodFileIsReviewed(), "2");
    EXPECT_THAT(
        Bytes("Dorvik/P_DORVIK.txt"),
        HasSubstr("X.frm review incomplete due to unexpected error."));
}

TEST_F(BadInput, AProcedureLeftOpenCostsNoOtherFile) {
    WriteLines("X.bas", {"Attribute VB_Name = \"X\"", "Sub Open()", "    x = 1"});
    EXPECT_EQ(ReviewWith("Module=X; X.bas").ExitCode, 0);
    EXPECT_EQ(GoodFileIsReviewed(), "2");
    EXPECT_EQ(Run({"events", "P.vbp"}).ExitCode, 0);
    EXPECT_EQ(Run({"events", "P.vbp", "--keep-known-faults"}).ExitCode, 3);
}

TEST_F(BadInput, AProcedureLeftOpenReachesIntoTheNextFileWhereKnownFaultsAreKept) {
    WriteLines("X.bas", {"Attribute VB_Name = \"X\"", "Sub Open()", "    x = 1"});
    ReviewWith("Module=X; X.bas");
    const ProgramResult result =
        Run({"review", "P.vbp", "--quiet", "--conventions", "uk", "--keep-known-faults"});
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
