#include "cli/CommandLineFixture.h"
#include "platform/host/modFiles.h"
#include "support/FilesystemPaths.h"

#include <gmock/gmock.h>

namespace dorvik::test {

namespace {

namespace fs = std::filesystem;

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

/// Reviews that meet with trouble on the machine or in a script.
class ReviewTrouble : public CommandLineFixture {
protected:
    /// A rulebase whose only rule of consequence is a coding convention at "begin Procedure".
    void WriteRulebase(const std::string& name, const std::string& script) const {
        std::string text = modFiles::ReadBytes(test::ProgramPath(DORVIK_RULEBASE));
        const std::string empty = "<CodingConventions/>";
        const std::size_t at = text.find(empty);
        ASSERT_NE(at, std::string::npos);
        text.replace(
            at,
            empty.size(),
            R"(<CodingConventions><CodingConvention RuleID="6000" RuleActive="True" Title="Slow")"
            R"( Description="" PendingViolation="False" EndEventID="-1" Condition=")" +
                script +
                R"(" ParserEventID="28"><ViolationDefinition Name="Slow" Description="")"
                R"( SeverityLevel="5" Impact="0" CategoryID="-1" Advice=""/></CodingConvention>)"
                "</CodingConventions>");
        WriteBytes(name, text);
    }

    /// A project of one module with that many procedures.
    void WriteProcedures(int count) const {
        std::string module = "Attribute VB_Name = \"modA\"\r\nOption Explicit\r\n";
        for (int index = 1; index <= count; ++index) {
            module += "Sub Work" + std::to_string(index) + "()\r\nEnd Sub\r\n";
        }
        WriteBytes("A.bas", module);
        WriteLines("A.vbp", {"Type=Exe", "Module=modA; A.bas", "Name=\"A\""});
    }
};

const std::string kEndless = "Sub Main%CRLF%Do%CRLF%Loop%CRLF%End Sub";

TEST_F(ReviewTrouble, AQuoteInAFolderNameDoesNoHarm) {
    WriteLines("O'Brien/A.vbp", {"Type=Exe", "Module=A; A.bas", "Name=\"A\""});
    WriteLines("O'Brien/A.bas", {"Attribute VB_Name = \"A\"", "Sub Work()", "    Stop", "End Sub"});
    const ProgramResult result = Run({"review", "O'Brien/A.vbp", "--results", "out"});
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_EQ(result.Error, "");
    EXPECT_THAT(
        result.Output, AllOf(HasSubstr("1 file, "), HasSubstr("A.bas:2: high: No Stop in Work")));
}

TEST_F(ReviewTrouble, AFileNameThatReadsLikeAConditionHasResultsOfItsOwn) {
    WriteLines(
        "A.vbp", {"Type=Exe", "Module=A; A.bas", "Module=x; x' OR Filename<>'.bas", "Name=\"A\""});
    WriteLines("A.bas", {"Attribute VB_Name = \"A\"", "Option Explicit"});
    WriteLines(
        "x' OR Filename<>'.bas",
        {"Attribute VB_Name = \"x\"", "Sub Work()", "    Stop", "End Sub"});
    const ProgramResult result = Run({"review", "A.vbp", "--results", "out"});
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_THAT(
        result.Output, AllOf(HasSubstr("2 files, "), HasSubstr("x' OR Filename<>'.bas:2: high")));
    EXPECT_EQ(
        Query("out/A_DORVIK.mdb", "SELECT Count(SourceID) FROM SourceFiles"), "3");  // and A.vbp
}

TEST_F(ReviewTrouble, WithTheKnownFaultsAQuoteInAFolderNameCostsTheResultsOfItsFilesWhichIsTold) {
    WriteLines("it's/A.vbp", {"Type=Exe", "Module=A; A.bas", "Name=\"A\""});
    WriteLines("it's/A.bas", {"Attribute VB_Name = \"A\"", "Option Explicit"});
    const ProgramResult result =
        Run({"review", "it's/A.vbp", "--results", "out", "--keep-known-faults"});
    EXPECT_EQ(result.ExitCode, 3) << result.Error;
    ExpectClearSentences(result);
    EXPECT_THAT(
        result.Errors(),
        ElementsAre(AllOf(
            HasSubstr(Work("it's/A.vbp").string()),
            HasSubstr("are incomplete"),
            HasSubstr("a name or a path has a quote in it"))));
}

TEST_F(ReviewTrouble, AReviewLogThatCannotBeWrittenCostsTheProjectAndNotTheProgram) {
    WriteModuleProject("A", "    x = 1");
    fs::create_directories(Work("out/A_DORVIK.txt"));
    const ProgramResult result = Run({"review", "A.vbp", "--results", "out"});
    EXPECT_EQ(result.ExitCode, 2) << result.Error;
    ExpectClearSentences(result);
    EXPECT_THAT(
        result.Error,
        HasSubstr(
            "'" + Work("out/A_DORVIK.txt").string() + "' is a folder where a file is needed"));
    EXPECT_THAT(result.Error, HasSubstr("A.vbp' was not reviewed"));
    EXPECT_THAT(result.Output, Not(HasSubstr("passed")));
}

TEST_F(ReviewTrouble, AnotherProjectIsReviewedAllTheSame) {
    WriteModuleProject("A", "    x = 1");
    WriteModuleProject("B", "    x = 1");
    fs::create_directories(Work("out/A_DORVIK.txt"));
    const ProgramResult result = Run({"review", "A.vbp", "B.vbp", "--results", "out"});
    EXPECT_EQ(result.ExitCode, 3) << result.Error;
    EXPECT_THAT(result.Output, AllOf(HasSubstr("B.vbp"), HasSubstr("passed")));
}

TEST_F(ReviewTrouble, AnInstructionLimitStopsAScriptAndTheSummaryNamesTheDisabledRule) {
    WriteRulebase("Slow.dvk", kEndless);
    WriteProcedures(4);
    const ProgramResult result = Run(
        {"review",
         "A.vbp",
         "--rulebase",
         "Slow.dvk",
         "--script-instructions",
         "5000",
         "--script-seconds",
         "0"});
    EXPECT_EQ(result.ExitCode, 3) << result.Error;
    EXPECT_THAT(
        result.Errors(),
        ElementsAre("dorvik: rule 6000 (Slow) was disabled, because its script exceeded a limit 3 "
                    "times; see the review log"));
    EXPECT_THAT(
        Bytes("Dorvik/A_DORVIK.txt"), HasSubstr("the limit of 5000 instructions was reached"));
}

TEST_F(ReviewTrouble, AFractionOfAMillisecondIsALimitToo) {
    WriteRulebase("Slow.dvk", kEndless);
    WriteProcedures(1);
    const ProgramResult result = Run(
        {"review",
         "A.vbp",
         "--rulebase",
         "Slow.dvk",
         "--script-seconds",
         "0.0001",
         "--script-instructions",
         "0"});
    EXPECT_EQ(result.ExitCode, 3) << result.Error;
    EXPECT_THAT(
        result.Errors(),
        ElementsAre(
            "dorvik: rule 6000 (Slow) is incomplete, because its script exceeded a limit 1 time; "
            "see the review log"));
    EXPECT_THAT(Bytes("Dorvik/A_DORVIK.txt"), HasSubstr("Script of rule 6000 (Slow), line 3"));
}

TEST_F(ReviewTrouble, ARuleWhoseScriptFailsIsToldWithTheNumberOfItsFailures) {
    WriteRulebase("Broken.dvk", "Sub Main%CRLF%Dim n%CRLF%n = 1 / 0%CRLF%End Sub");
    WriteProcedures(3);
    const ProgramResult result = Run({"review", "A.vbp", "--rulebase", "Broken.dvk"});
    EXPECT_EQ(result.ExitCode, 3);
    EXPECT_THAT(
        result.Errors(),
        ElementsAre(
            "dorvik: rule 6000 (Slow) is incomplete, because its script failed 3 times; see "
            "the review log"));
}

TEST_F(ReviewTrouble, ARuleWhosePatternIsNoneIsTold) {
    std::string text = modFiles::ReadBytes(test::ProgramPath(DORVIK_RULEBASE));
    const std::string pattern = "Stop(\\s*$";
    const std::size_t at = text.find(pattern);
    ASSERT_NE(at, std::string::npos);
    WriteBytes("Broken.dvk", text.insert(at, "("));
    WriteModuleProject("A", "    Stop");
    const ProgramResult result = Run({"review", "A.vbp", "--rulebase", "Broken.dvk"});
    EXPECT_EQ(result.ExitCode, 3);
    EXPECT_THAT(
        result.Errors(),
        ElementsAre(HasSubstr("rule 5032 (No Stop) is incomplete, because its pattern failed")));
}

TEST_F(ReviewTrouble, TheTimesOfTheScriptsAreToldWhenAskedFor) {
    WriteRulebase("Quick.dvk", "Sub Main%CRLF%End Sub");
    WriteProcedures(3);
    const ProgramResult result =
        Run({"review", "A.vbp", "--rulebase", "Quick.dvk", "--rule-times"});
    EXPECT_THAT(result.Output, AllOf(HasSubstr("rule 6000 (Slow)"), HasSubstr("All 1 scripts")));
    EXPECT_THAT(
        Run({"review", "A.vbp", "--rulebase", "Quick.dvk"}).Output, Not(HasSubstr("scripts")));
}

TEST_F(ReviewTrouble, AScriptWithoutSubMainIsToldWithItsRule) {
    WriteRulebase("Broken.dvk", "Sub Other%CRLF%End Sub");
    WriteProcedures(1);
    const ProgramResult result = Run({"review", "A.vbp", "--rulebase", "Broken.dvk"});
    EXPECT_EQ(result.ExitCode, 2);
    ExpectClearSentences(result);
    EXPECT_THAT(
        result.Errors(),
        ElementsAre(
            HasSubstr("CodingConvention 6000 'Slow', Condition: the script has no 'Sub Main'"),
            HasSubstr("nothing was reviewed, because the scripts of the rulebase '")));
}

TEST_F(ReviewTrouble, ATemporaryFolderThatCannotBeUsedIsNamedInOneSentence) {
    WriteProcedures(1);
    ProgramRun::Settings settings = Settings({"review", "A.vbp"});
    settings.TemporaryFolder = "/proc";
    ProgramRun run(settings);
    run.Wait();
    EXPECT_EQ(run.ExitCode(), 2);
    const ProgramResult result{run.ExitCode(), run.Output(), run.Error()};
    ExpectClearSentences(result);
    EXPECT_THAT(
        result.Errors(),
        ElementsAre(HasSubstr("their module cannot be written to the temporary folder '/proc")));
}

TEST_F(ReviewTrouble, AReviewLeavesNothingInTheTemporaryFolder) {
    WriteProcedures(1);
    fs::create_directories(Work("temp"));
    ProgramRun::Settings settings = Settings({"review", "A.vbp"});
    settings.TemporaryFolder = Work("temp").string();
    ProgramRun run(settings);
    run.Wait();
    EXPECT_EQ(run.ExitCode(), 0) << run.Error();
    EXPECT_TRUE(fs::is_empty(Work("temp")));
}

TEST_F(ReviewTrouble, TheLineThatEndsTheReadingOfAProjectFileIsTold) {
    WriteLines(
        "A.vbp", {"Type=Exe", "Module=A; A.bas", "Title=\"x\"", "Module=A; A.bas", "Name=\"A\""});
    const ProgramResult result = Run({"review", "A.vbp"});
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_THAT(
        result.Errors(),
        ElementsAre(HasSubstr(
            "A.vbp' cannot be parsed from line 4 on, which is 'Module=A; A.bas' (one possible "
            "reason is a key or a source file that is named twice)")));
    EXPECT_THAT(Run({"events", "A.vbp"}).Error, HasSubstr("cannot be parsed from line 4 on"));
}

TEST_F(ReviewTrouble, AValueOfAListBehindABlankIsNotTakenForAPath) {
    WriteModuleProject("A", "    x = 1");
    const std::pair<std::vector<std::string>, std::string> lines[] = {
        {{"review", "A.vbp", "--tolerance", "CVC=1", "HVC=2"}, "--tolerance CVC=1,HVC=2"},
        {{"review", "A.vbp", "--severity", "1", "2"}, "--severity 1,2"},
        {{"review", "A.vbp", "--conventions", "cc", "uk"}, "--conventions cc,uk"},
    };
    for (const auto& [line, remedy] : lines) {
        const ProgramResult result = Run(line);
        EXPECT_EQ(result.ExitCode, 2);
        EXPECT_THAT(
            result.Errors(),
            ElementsAre(
                "dorvik: '" + line.back() + "' does not exist; to give several values to " +
                line[2] + ", separate them with commas: " + remedy));
        EXPECT_FALSE(Exists("Dorvik"));
    }
    fs::copy_file(Work("A.bas"), Work("2"));
    EXPECT_THAT(
        Run({"review", "A.vbp", "--severity", "1", "2"}).Error,
        HasSubstr("'2' is neither a project file"))
        << "what is there is a path";
}

TEST_F(ReviewTrouble, TheFolderOfTheResultsTakesThePagesToo) {
    WriteModuleProject("A", "    x = 1");
    EXPECT_EQ(Run({"review", "A.vbp", "--results", "out", "--report", "summary"}).ExitCode, 0);
    EXPECT_TRUE(Exists("out/A_DORVIK.mdb"));
    EXPECT_FALSE(Exists("Dorvik"));
    std::string pages;
    for (const auto& entry : fs::directory_iterator(Work("out"))) {
        pages += entry.path().extension() == ".html" ? entry.path().filename().string() : "";
    }
    EXPECT_NE(pages, "");
    Run({"review", "A.vbp", "--results", "two", "--report", "summary", "--reports", "pages"});
    EXPECT_TRUE(Exists("pages/" + pages));
    EXPECT_FALSE(Exists("two/" + pages));
}

TEST_F(ReviewTrouble, ProjectsOfOneGroupThatAreMissingAreToldOneByOne) {
    std::string group = "VBGROUP 5.0\r\n";
    for (int number = 0; number < 300; ++number) {
        group += "Project=p" + std::to_string(number) + ".vbp\r\n";
    }
    WriteBytes("g.vbg", group + "Project=P7.VBP\r\n");
    const ProgramResult result = Run({"review", "g.vbg"});
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_EQ(result.Errors().size(), 300U);
}

}  // namespace

}  // namespace dorvik::test
