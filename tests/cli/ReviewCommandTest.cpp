#include "cli/CommandLineFixture.h"
#include "support/LineText.h"

#include <gmock/gmock.h>

#include <fstream>
#include <thread>

namespace dorvik::test {

namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;
using ::testing::StartsWith;

// `End` is critical in the sample rulebase, and one critical violation fails a project.
constexpr std::string_view kFails = "    End";
constexpr std::string_view kPasses = "    x = 1";

class ReviewCommand : public CommandLineFixture {};

TEST_F(ReviewCommand, APassedReviewEndsWithZero) {
    WriteModuleProject("Good", kPasses);
    const ProgramResult result = Run({"review", "Good.vbp"});
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_THAT(result.Error, IsEmpty());
    EXPECT_THAT(result.Output, HasSubstr("Verdict     passed"));
}

TEST_F(ReviewCommand, AFailedVerdictEndsWithOne) {
    WriteModuleProject("Bad", kFails);
    const ProgramResult result = Run({"review", "Bad.vbp"});
    EXPECT_EQ(result.ExitCode, 1) << result.Error;
    EXPECT_THAT(result.Error, IsEmpty());
    EXPECT_THAT(result.Output, HasSubstr("Verdict     failed: Critical Violation Count"));
}

TEST_F(ReviewCommand, WithoutARulebaseTheSampleRulebaseCounts) {
    WriteModuleProject("First", "Dim a: a = 1: End");
    const ProgramResult result = RunAsTyped({"review", "First.vbp"});
    EXPECT_EQ(result.ExitCode, 1) << result.Error;
    EXPECT_EQ(
        Query("Dorvik/First_DORVIK.mdb", "SELECT RulebaseTitle FROM Review"),
        "Sample rules for Visual Basic 6");
}

TEST_F(ReviewCommand, TheSummaryTellsFilesLinesViolationsVerdictAndResults) {
    WriteModuleProject("Bad", kFails);
    const ProgramResult result = Run({"review", "Bad.vbp", "--conventions", "uk"});
    EXPECT_THAT(
        LinesOf(result.Output),
        ElementsAre(
            Work("Bad.vbp").string(),
            "  1 file, 4 lines",
            "  Violations  1  (1 critical, 0 high, 0 medium, 0 low, 0 info)",
            AllOf(HasSubstr("Bad.bas:3"), HasSubstr("critical"), HasSubstr("Work")),
            "  Verdict     failed: Critical Violation Count",
            "  Results     " + Work("Dorvik/Bad_DORVIK.mdb").string()));
}

TEST_F(ReviewCommand, TheResultsDatabaseHoldsAWholeReviewOfTypeTwo) {
    WriteModuleProject("Bad", kFails);
    Run({"review", "Bad.vbp"});
    const std::string results = "Dorvik/Bad_DORVIK.mdb";
    EXPECT_EQ(Query(results, "SELECT Type FROM Review"), "2");
    EXPECT_EQ(
        Query(results, "SELECT [End] FROM Review").size(), std::string("yyyymmdd hhnnss").size());
    EXPECT_EQ(Query(results, "SELECT Version FROM SystemInfo"), "6.02.0000");
    EXPECT_EQ(Query(results, "SELECT Name FROM Projects"), "Bad");
    EXPECT_EQ(Query(results, "SELECT SourceLine FROM Violations WHERE Severity = 1"), "    End");
}

struct WrongUseRow {
    const char* Name;
    std::vector<std::string> Arguments;
    const char* Says;
};

void PrintTo(const WrongUseRow& row, std::ostream* out) {
    *out << row.Name;
}

class WrongUse : public CommandLineFixture, public ::testing::WithParamInterface<WrongUseRow> {};

TEST_P(WrongUse, EndsWithTwoAndOneSentenceOnStandardError) {
    WriteModuleProject("Good", kPasses);
    WriteBytes("notes.txt", "hello");
    WriteBytes("broken.dvk", "<Dorvik_Rulebase SchemaVersion=\"6.2\"><Conv");
    WriteBytes("foreign.dvk", "<html/>");
    WriteBytes("empty.dvk", "");
    std::filesystem::create_directory(Work("hollow"));
    WriteLines("empty.vbg", {"VBGROUP 5.0"});
    const ProgramResult result = Run(GetParam().Arguments);
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_THAT(result.Output, IsEmpty());
    EXPECT_THAT(
        result.Errors(), ElementsAre(AllOf(StartsWith("dorvik: "), HasSubstr(GetParam().Says))));
    EXPECT_FALSE(Exists("Dorvik/Good_DORVIK.mdb"));
}

INSTANTIATE_TEST_SUITE_P(
    CommandLine,
    WrongUse,
    ::testing::Values(
        WrongUseRow{"NoCommand", {}, "subcommand"},
        WrongUseRow{"UnknownCommand", {"inspect"}, "inspect"},
        WrongUseRow{"NoPath", {"review"}, "PATH"},
        WrongUseRow{"UnknownOption", {"review", "Good.vbp", "--fast"}, "--fast"},
        WrongUseRow{"UnknownConvention", {"review", "Good.vbp", "--conventions", "uk,xx"}, "xx"},
        WrongUseRow{"SeverityOutOfRange", {"review", "Good.vbp", "--severity", "6"}, "6"},
        WrongUseRow{"SeverityWithoutNumber", {"review", "Good.vbp", "--severity", "high"}, "high"},
        WrongUseRow{"UnknownCodePage", {"review", "Good.vbp", "--code-page", "1"}, "'1'"},
        WrongUseRow{"CodePageWithoutNumber", {"review", "Good.vbp", "--code-page", "x"}, "'x'"},
        WrongUseRow{"MissingProject", {"review", "Gone.vbp"}, "Gone.vbp"},
        WrongUseRow{"NoProjectFile", {"review", "notes.txt"}, "notes.txt"},
        WrongUseRow{"FolderWithoutProject", {"review", "hollow"}, "hollow"},
        WrongUseRow{"EmptyGroup", {"review", "empty.vbg"}, "empty.vbg"},
        WrongUseRow{
            "MissingRulebase", {"review", "Good.vbp", "--rulebase", "gone.dvk"}, "gone.dvk"},
        WrongUseRow{"RulebaseIsFolder", {"review", "Good.vbp", "--rulebase", "hollow"}, "hollow"},
        WrongUseRow{
            "TruncatedRulebase", {"review", "Good.vbp", "--rulebase", "broken.dvk"}, "broken.dvk"},
        WrongUseRow{
            "ForeignRulebase", {"review", "Good.vbp", "--rulebase", "foreign.dvk"}, "foreign.dvk"},
        WrongUseRow{
            "EmptyRulebase", {"review", "Good.vbp", "--rulebase", "empty.dvk"}, "empty.dvk"},
        WrongUseRow{"EventsWithoutProject", {"events"}, "PROJECT"},
        WrongUseRow{"EventsOfAMissingProject", {"events", "Gone.vbp"}, "Gone.vbp"},
        WrongUseRow{"EventsOfAGroup", {"events", "empty.vbg"}, "empty.vbg"},
        WrongUseRow{"EventsOfAFolder", {"events", "hollow"}, "hollow"}),
    [](const auto& row) { return row.param.Name; });

TEST_F(ReviewCommand, AMissingSourceFileEndsWithThreeAndIsNamed) {
    WriteModuleProject("Half", kPasses);
    WriteLines(
        "Half.vbp",
        {"Type=Exe", "Module=Half; Half.bas", "Module=Lost; Lost.bas", "Name=\"Half\""});
    const ProgramResult result = Run({"review", "Half.vbp"});
    EXPECT_EQ(result.ExitCode, 3);
    EXPECT_THAT(
        result.Errors(),
        ElementsAre("dorvik: the source file '" + Work("Lost.bas").string() + "' does not exist"));
    EXPECT_THAT(
        result.Output, HasSubstr("Verdict     none: 1 of 2 files was not reviewed completely"));
}

TEST_F(ReviewCommand, ADriveThatDoesNotExistHereIsAMissingFile) {
    WriteModuleProject("Far", kPasses);
    WriteLines(
        "Far.vbp",
        {"Type=Exe",
         "Module=A; C:\\Src\\A.bas",
         "Module=B; \\\\server\\share\\B.bas",
         "Name=\"Far\""});
    const ProgramResult result = Run({"review", "Far.vbp"});
    EXPECT_EQ(result.ExitCode, 3);
    EXPECT_THAT(
        result.Errors(),
        ElementsAre(
            AllOf(HasSubstr("A.bas"), HasSubstr("does not exist")),
            AllOf(HasSubstr("B.bas"), HasSubstr("does not exist"))));
}

TEST_F(ReviewCommand, AProjectThatCannotBeReadEndsWithThreeWhenAnotherWasReviewed) {
    WriteModuleProject("Good", kPasses);
    WriteLines("Twice.vbp", {"Name=\"Twice\"", "Title=\"a\"", "Title=\"b\""});
    const ProgramResult result = Run({"review", "Twice.vbp", "Good.vbp"});
    EXPECT_EQ(result.ExitCode, 3);
    EXPECT_THAT(result.Errors(), ElementsAre(HasSubstr("Twice.vbp")));
    EXPECT_TRUE(Exists("Dorvik/Good_DORVIK.mdb"));
}

TEST_F(ReviewCommand, NothingReviewedEndsWithTwo) {
    WriteLines("Twice.vbp", {"Name=\"Twice\"", "Title=\"a\"", "Title=\"b\""});
    const ProgramResult result = Run({"review", "Twice.vbp"});
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_THAT(result.Errors(), ElementsAre(HasSubstr("Twice.vbp")));
    EXPECT_THAT(result.Output, IsEmpty());
}

TEST_F(ReviewCommand, SeveralPathsAreReviewedInTheirOrder) {
    WriteModuleProject("Beta", kPasses);
    WriteModuleProject("Alpha", kPasses);
    const ProgramResult result = Run({"review", "Beta.vbp", "Alpha.vbp", "--quiet"});
    EXPECT_EQ(result.ExitCode, 0);
    const ProgramResult loud = Run({"review", "Beta.vbp", "Alpha.vbp"});
    const std::size_t beta = loud.Output.find(Work("Beta.vbp").string());
    const std::size_t alpha = loud.Output.find(Work("Alpha.vbp").string());
    EXPECT_LT(beta, alpha);
    EXPECT_NE(alpha, std::string::npos);
}

TEST_F(ReviewCommand, OneProjectNamedTwiceIsReviewedOnce) {
    WriteModuleProject("Good", kPasses);
    const ProgramResult result = Run({"review", "Good.vbp", "./Good.vbp", "."});
    EXPECT_EQ(result.ExitCode, 0);
    const std::string name = Work("Good.vbp").string() + "\n";
    EXPECT_EQ(result.Output.find(name), result.Output.rfind(name));
}

TEST_F(ReviewCommand, AGroupStandsForItsProjects) {
    for (const char* name : {"Billing", "Clinic", "Warehouse"}) {
        CopySample(name);
    }
    WriteBytes(
        "Samples.vbg",
        "VBGROUP 5.0\r\nStartupProject=Billing\\Billing.vbp\r\nProject=Warehouse\\Warehouse.vbp\r\n"
        "Project=Clinic\\CLINIC.VBP\r\n");
    const ProgramResult result = Run({"review", "Samples.vbg"});
    EXPECT_EQ(result.ExitCode, 1) << result.Error;  // Billing has an `End`
    EXPECT_THAT(result.Error, IsEmpty());
    EXPECT_TRUE(Exists("Billing/Dorvik/Billing_DORVIK.mdb"));
    EXPECT_TRUE(Exists("Warehouse/Dorvik/Warehouse_DORVIK.mdb"));
    EXPECT_EQ(Query("Clinic/Dorvik/CLINIC_DORVIK.mdb", "SELECT Name FROM Projects"), "Clinic");
}

TEST_F(ReviewCommand, AProjectMissingFromAGroupEndsWithThree) {
    WriteModuleProject("Good", kPasses);
    WriteLines("Both.vbg", {"VBGROUP 5.0", "StartupProject=Good.vbp", "Project=Gone.vbp"});
    const ProgramResult result = Run({"review", "Both.vbg"});
    EXPECT_EQ(result.ExitCode, 3);
    EXPECT_THAT(
        result.Errors(),
        ElementsAre("dorvik: the project file '" + Work("Gone.vbp").string() + "' does not exist"));
}

TEST_F(ReviewCommand, AFolderStandsForEveryProjectBelowIt) {
    CopySample("Warehouse");
    CopySample("Clinic");
    std::filesystem::create_directories(Work("deep/down"));
    std::filesystem::rename(Work("Clinic"), Work("deep/down/Clinic"));
    WriteModuleProject("Top", kPasses);
    std::filesystem::rename(Work("Top.vbp"), Work("Top.VBP"));
    const ProgramResult result = Run({"review", "."});
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_TRUE(Exists("Warehouse/Dorvik/Warehouse_DORVIK.mdb"));
    EXPECT_TRUE(Exists("deep/down/Clinic/Dorvik/Clinic_DORVIK.mdb"));
    EXPECT_TRUE(Exists("Dorvik/Top_DORVIK.mdb"));
}

TEST_F(ReviewCommand, AFolderNamedLikeAProjectIsSearchedAsAFolder) {
    WriteModuleProject("inner/Good", kPasses);
    std::filesystem::rename(Work("inner"), Work("Trap.vbp"));
    std::filesystem::rename(Work("Trap.vbp/Good.bas"), Work("Trap.vbp/Other.bas"));
    WriteLines("Trap.vbp/Good.vbp", {"Type=Exe", "Module=Good; Other.bas", "Name=\"Good\""});
    const ProgramResult result = Run({"review", "Trap.vbp"});
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_TRUE(Exists("Trap.vbp/Dorvik/Good_DORVIK.mdb"));
}

TEST_F(ReviewCommand, ResultsGoToTheFolderNamedWhichIsMade) {
    WriteModuleProject("Good", kPasses);
    const ProgramResult result = Run({"review", "Good.vbp", "--results", "out"});
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_TRUE(Exists("out/Good_DORVIK.mdb"));
    EXPECT_TRUE(Exists("out/Good_DORVIK.txt"));
    EXPECT_FALSE(Exists("Dorvik"));
    EXPECT_THAT(result.Output, HasSubstr("Results     " + Work("out/Good_DORVIK.mdb").string()));
}

TEST_F(ReviewCommand, AResultsFolderThatCannotBeMadeIsToldAndNothingIsReviewed) {
    WriteModuleProject("Good", kPasses);
    WriteBytes("blocked", "a file");
    const ProgramResult result = Run({"review", "Good.vbp", "--results", "blocked/out"});
    EXPECT_EQ(result.ExitCode, 2);
    ExpectClearSentences(result);
    EXPECT_THAT(
        result.Error, AllOf(HasSubstr("Good.vbp"), HasSubstr("results could not be written")));
}

TEST_F(ReviewCommand, ASecondReviewReplacesTheResultsAndAppendsToTheLog) {
    WriteModuleProject("Good", kPasses);
    Run({"review", "Good.vbp"});
    const std::string once = Bytes("Dorvik/Good_DORVIK.txt");
    Run({"review", "Good.vbp"});
    EXPECT_EQ(Query("Dorvik/Good_DORVIK.mdb", "SELECT COUNT(*) FROM Review"), "1");
    EXPECT_EQ(Bytes("Dorvik/Good_DORVIK.txt").size(), 2 * once.size());
}

TEST_F(ReviewCommand, ClearLogEmptiesTheReviewLogFirst) {
    WriteModuleProject("Good", kPasses);
    WriteBytes("Dorvik/Good_DORVIK.txt", "from last year\r\n");
    Run({"review", "Good.vbp"});
    EXPECT_THAT(Bytes("Dorvik/Good_DORVIK.txt"), HasSubstr("from last year"));
    Run({"review", "Good.vbp", "--clear-log"});
    EXPECT_THAT(
        Bytes("Dorvik/Good_DORVIK.txt"),
        AllOf(Not(HasSubstr("from last year")), HasSubstr("Good.bas successfully reviewed.")));
}

TEST_F(ReviewCommand, ConventionsLimitTheKindsOfRule) {
    WriteModuleProject("Bad", kFails);
    const std::string results = "Dorvik/Bad_DORVIK.mdb";
    EXPECT_EQ(Run({"review", "Bad.vbp", "--conventions", "ac,ar"}).ExitCode, 0);
    EXPECT_EQ(Query(results, "SELECT COUNT(*) FROM Violations WHERE RuleType = 3"), "0");
    EXPECT_EQ(Query(results, "SELECT UnauthorisedKeywords FROM Review"), "False");
    EXPECT_EQ(Query(results, "SELECT AuthorisedComponents FROM Review"), "True");
    EXPECT_EQ(Run({"review", "Bad.vbp", "--conventions", "uk"}).ExitCode, 1);
    EXPECT_EQ(Query(results, "SELECT COUNT(*) FROM Violations"), "1");
    EXPECT_EQ(Query(results, "SELECT UnauthorisedKeywords FROM Review"), "True");
    EXPECT_EQ(Query(results, "SELECT AuthorisedComponents FROM Review"), "False");
}

TEST_F(ReviewCommand, AllFiveConventionsAreOnAndDocumentationIsOffUnlessTold) {
    WriteModuleProject("Good", kPasses);
    Run({"review", "Good.vbp"});
    const std::string results = "Dorvik/Good_DORVIK.mdb";
    for (const char* column :
         {"CodingConventions",
          "NamingConventions",
          "AuthorisedComponents",
          "AuthorisedReferences",
          "UnauthorisedKeywords"}) {
        EXPECT_EQ(Query(results, std::string("SELECT ") + column + " FROM Review"), "True")
            << column;
    }
    EXPECT_EQ(Query(results, "SELECT DocumentationConventions FROM Review"), "False");
}

TEST_F(ReviewCommand, SeverityLimitsWhatIsReported) {
    WriteModuleProject("Bad", "    DoEvents: End");
    const std::string results = "Dorvik/Bad_DORVIK.mdb";
    EXPECT_EQ(Run({"review", "Bad.vbp", "--severity", "2,3,4,5"}).ExitCode, 0);
    EXPECT_EQ(Query(results, "SELECT COUNT(*) FROM Violations WHERE Severity = 1"), "0");
    EXPECT_EQ(Query(results, "SELECT COUNT(*) FROM Violations WHERE Severity = 3"), "1");
    EXPECT_EQ(Query(results, "SELECT Included FROM SeverityList WHERE SeverityLevel = 1"), "False");
    EXPECT_EQ(Query(results, "SELECT Included FROM SeverityList WHERE SeverityLevel = 3"), "True");
    EXPECT_EQ(Run({"review", "Bad.vbp", "--severity", "1"}).ExitCode, 1);
    EXPECT_EQ(Query(results, "SELECT COUNT(*) FROM Violations"), "1");
}

TEST_F(ReviewCommand, QuietPrintsNothingButErrors) {
    WriteModuleProject("Bad", kFails);
    const ProgramResult result = Run({"review", "Bad.vbp", "--quiet"});
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_THAT(result.Output, IsEmpty());
    EXPECT_THAT(result.Error, IsEmpty());
    EXPECT_THAT(Run({"review", "Bad.vbp", "Gone.vbp", "--quiet"}).Errors(), SizeIs(1));
}

TEST_F(ReviewCommand, ProgressShowsProjectFileAndThreePercentages) {
    CopySample("Warehouse");
    const ProgramResult result = Run({"review", "Warehouse", "--progress"});
    EXPECT_EQ(result.ExitCode, 0);
    EXPECT_THAT(
        result.Error,
        AllOf(
            HasSubstr("Warehouse  "),
            HasSubstr("Stock.cls"),
            HasSubstr("file 100%"),
            HasSubstr("review 100%")));
    EXPECT_EQ(result.Error.find('\n'), std::string::npos) << "one line, written over";
    EXPECT_THAT(result.Output, Not(HasSubstr("100%")));
}

TEST_F(ReviewCommand, NoProgressWithoutATerminal) {
    CopySample("Warehouse");
    EXPECT_THAT(Run({"review", "Warehouse"}).Error, IsEmpty());
}

TEST_F(ReviewCommand, AProjectNamedInAnotherCodePageIsFoundOnDisk) {
    // "Größe.bas" with the letters of code page 850.
    WriteBytes(
        "Pages.vbp",
        "Type=Exe\r\nModule=Pages; Gr\x94\xE1"
        "e.bas\r\nName=\"Pages\"\r\n");
    WriteLines(
        "Gr\xC3\xB6\xC3\x9F"
        "e.bas",
        {"Attribute VB_Name = \"Pages\"", "Sub A()", "End Sub"});
    const ProgramResult result = Run({"review", "Pages.vbp", "--code-page", "850"});
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_EQ(Run({"review", "Pages.vbp"}).ExitCode, 3);
}

TEST_F(ReviewCommand, CtrlCLeavesNoHalfWrittenResultsAndKeepsFinishedOnes) {
    WriteModuleProject("First", kPasses);
    std::string body;
    for (int line = 0; line < 400000; ++line) {
        body += "    total = total + Price(" + std::to_string(line) + ")\r\n";
    }
    WriteModuleProject("Second", body);
    ProgramRun run(Settings({"review", "First.vbp", "Second.vbp"}));
    while (!Exists("Dorvik/Second_DORVIK.mdb") && run.IsRunning()) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    run.Interrupt();
    run.Wait();
    EXPECT_EQ(run.ExitCode(), 130);
    EXPECT_FALSE(Exists("Dorvik/Second_DORVIK.mdb"));
    EXPECT_FALSE(Exists("Dorvik/First_DORVIK.mdb-lock"));
    EXPECT_FALSE(Exists("Dorvik/Second_DORVIK.mdb-lock"));
    EXPECT_EQ(Query("Dorvik/First_DORVIK.mdb", "SELECT Name FROM Projects"), "First");
    EXPECT_EQ(run.Error(), "dorvik: interrupted; the current project has no results\n");
    EXPECT_THAT(Bytes("Dorvik/Second_DORVIK.txt"), HasSubstr("Review aborted by user."));
}

TEST_F(ReviewCommand, CtrlCWhilePagesAreWrittenLeavesTheNextProjectAlone) {
    std::string modules;
    for (int file = 0; file < 150; ++file) {
        const std::string name = "mod" + std::to_string(file);
        modules += "Module=" + name + "; " + name + ".bas\r\n";
        WriteLines(
            name + ".bas", {"Attribute VB_Name = \"" + name + "\"", "Sub Work()", "End Sub"});
    }
    WriteLines("First.vbp", {"Type=Exe", "Name=\"First\"", modules});
    WriteModuleProject("Second", kPasses);
    ASSERT_EQ(Run({"review", "Second.vbp"}).ExitCode, 0);
    const std::string before = Bytes("Dorvik/Second_DORVIK.mdb");
    ProgramRun run(Settings({"review", "First.vbp", "Second.vbp", "--report", "detailed"}));
    while (!Exists("Dorvik/mod0_mod0_Detail.html") && run.IsRunning()) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    run.Interrupt();
    run.Wait();
    EXPECT_EQ(run.ExitCode(), 130);
    EXPECT_EQ(
        run.Error(),
        "dorvik: interrupted; the results are complete, but the current report was not written\n");
    EXPECT_NE(Query("Dorvik/First_DORVIK.mdb", "SELECT [End] FROM Review"), "");
    EXPECT_FALSE(Exists("Dorvik/First_Dorvik.html"));
    EXPECT_EQ(Bytes("Dorvik/Second_DORVIK.mdb"), before);
}

TEST_F(ReviewCommand, HelpAndVersionGoToStandardOutputAndEndWithZero) {
    for (const char* option : {"--help", "--version"}) {
        const ProgramResult result = Run({option});
        EXPECT_EQ(result.ExitCode, 0) << option;
        EXPECT_THAT(result.Error, IsEmpty());
        EXPECT_THAT(result.Output, Not(IsEmpty()));
    }
    EXPECT_THAT(Run({"review", "--help"}).Output, HasSubstr("--conventions"));
}

}  // namespace

}  // namespace dorvik::test
