#include "cli/ResultsCommandFixture.h"
#include "support/LineText.h"

#include <gmock/gmock.h>

namespace dorvik::test {

namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class ResultsCommand : public ResultsCommandFixture {
protected:
    std::string Files(std::vector<std::string> words, const char* member = "name") const {
        words.insert(words.begin(), "files");
        return Values(words, "files", member);
    }
    std::string Procedures(std::vector<std::string> words, const char* member = "procedure") const {
        words.insert(words.begin(), "procedures");
        return Values(words, "procedures", member);
    }
};

// ---- summary ----

TEST_F(ResultsCommand, TheSummaryIsWhatTheReviewPrinted) {
    const ProgramResult review =
        Run({"review", "Shop.vbp", "--rulebase", "team.dvk", "--conventions", "uk"});
    const ProgramResult summary = Show({"summary"});
    EXPECT_EQ(summary.ExitCode, 0) << summary.Error;
    EXPECT_EQ(summary.Output, review.Output);
    EXPECT_THAT(summary.Output, HasSubstr("Verdict     failed: Critical Violation Count"));
}

TEST_F(ResultsCommand, TheSummaryAsJsonHasFiguresVerdictAndWorstFindings) {
    const rapidjson::Document json = Json({"summary"});
    EXPECT_EQ(json["projectFile"].GetString(), Work("Shop.vbp").string());
    EXPECT_EQ(json["files"].GetInt(), 3);
    EXPECT_EQ(json["lines"].GetInt(), 23);
    EXPECT_EQ(json["violations"]["critical"].GetInt(), 2);
    EXPECT_EQ(json["violations"]["total"].GetInt(), 9);
    EXPECT_EQ(json["impact"].GetInt(), 3930);
    EXPECT_TRUE(json["ended"].GetBool());
    EXPECT_FALSE(json["passed"].GetBool());
    EXPECT_STREQ(json["failedMeasures"][0].GetString(), "Critical Violation Count");
    EXPECT_STREQ(json["worst"][0]["title"].GetString(), "No Stop");
    EXPECT_EQ(json["worst"].Size(), 9U);
}

TEST_F(ResultsCommand, TheSummaryAsCommaSeparatedValuesIsOneLine) {
    const Lines lines = Csv({"summary"});
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_THAT(lines[0], Contains("failedMeasures"));
    EXPECT_THAT(
        lines[1],
        ElementsAre(
            Work(kDatabase).string(),
            "Shop",
            Work("Shop.vbp").string(),
            "true",
            "3",
            "23",
            "2",
            "0",
            "3",
            "1",
            "3",
            "9",
            "3930",
            "false",
            "Critical Violation Count"));
}

// ---- files and procedures ----

TEST_F(ResultsCommand, FilesAreATableWithFiguresAndVerdict) {
    EXPECT_THAT(
        LinesOf(Show({"files"}).Output),
        ElementsAre(
            "Source file  Violations  Impact  Lines  %Comments  Complexity  Verdict",
            "modOne.bas            5   2,910     11          9           2  failed",
            "modTwo.bas            1      10      4          0           1  passed",
            "Shop.vbp              0       0    N/A        N/A         N/A  passed",
            "Stock.cls             3   1,010      8          0           1  passed"));
}

TEST_F(ResultsCommand, WithoutTolerancesFilesHaveNoVerdict) {
    Run({"review", "Shop.vbp", "--rulebase", "team.dvk", "--tolerance", "CVC=none", "--quiet"});
    EXPECT_THAT(Show({"files"}).Output, Not(HasSubstr("Verdict")));
    Run(
        {"review",
         "Shop.vbp",
         "--rulebase",
         "team.dvk",
         "--tolerance",
         "CVC=none,TVC=100",
         "--quiet"});
    EXPECT_THAT(Show({"files"}).Output, HasSubstr("Verdict"));
}

TEST_F(ResultsCommand, EachSortKeyOrdersFilesAndTheNameDecidesTheRest) {
    const struct {
        const char* Key;
        const char* Ascending;
        const char* Descending;
    } rows[] = {
        {"name", "modOne modTwo Shop Stock ", "Stock Shop modTwo modOne "},
        {"violations", "Shop modTwo Stock modOne ", "modOne Stock modTwo Shop "},
        {"impact", "Shop modTwo Stock modOne ", "modOne Stock modTwo Shop "},
        {"lines", "Shop modTwo Stock modOne ", "modOne Stock modTwo Shop "},
        {"comments", "modTwo Shop Stock modOne ", "modOne modTwo Shop Stock "},
        {"complexity", "Shop modTwo Stock modOne ", "modOne modTwo Stock Shop "},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Files({"--sort", row.Key}), row.Ascending) << row.Key;
        EXPECT_EQ(Files({"--sort", row.Key, "--descending"}), row.Descending) << row.Key;
    }
}

TEST_F(ResultsCommand, FiltersCountTheViolationsThatFit) {
    EXPECT_EQ(Files({}, "violations"), "5 1 0 3 ");
    EXPECT_EQ(Files({"--severity", "fatal,info"}, "violations"), "3 1 0 1 ");
    EXPECT_EQ(Files({"--category", "Layout"}, "violations"), "2 0 0 2 ");
    EXPECT_EQ(Files({"--kind", "naming"}, "violations"), "0 0 0 0 ");
    EXPECT_EQ(Files({"--kind", "keyword"}, "impact"), "2910 10 0 1010 ");
    EXPECT_EQ(Procedures({"Stock", "--severity", "5"}, "violations"), "0 1 0 ");
}

TEST_F(ResultsCommand, ProceduresAreThoseOfAllFilesOrOfOne) {
    EXPECT_THAT(
        LinesOf(Show({"procedures"}).Output),
        ElementsAre(
            "Procedure              Violations  Impact  Lines  %Comments  Complexity",
            "modOne (Declarations)           0       0    N/A        N/A         N/A",
            "modOne.Main                     2   1,400      4          0           1",
            "modOne.Work                     3   1,510      4          0           2",
            "modTwo (Declarations)           0       0    N/A        N/A         N/A",
            "modTwo.Main                     1      10      3          0           1",
            "Stock (Declarations)            0       0    N/A        N/A         N/A",
            "Stock.Rate (Get)                1      10      3          0           1",
            "Stock.Rate (Let)                2   1,000      4          0           1"));
    EXPECT_THAT(
        LinesOf(Show({"procedures", "stock.CLS", "--sort", "impact", "--descending"}).Output),
        ElementsAre(
            "Procedure       Violations  Impact  Lines  %Comments  Complexity",
            "Rate (Let)               2   1,000      4          0           1",
            "Rate (Get)               1      10      3          0           1",
            "(Declarations)           0       0    N/A        N/A         N/A"));
}

TEST_F(ResultsCommand, EachSortKeyOrdersProcedures) {
    EXPECT_EQ(Procedures({"Stock", "--sort", "name"}, "type"), " Property Get Property Let ");
    EXPECT_EQ(Procedures({"--sort", "violations"}, "violations"), "0 0 0 1 1 2 2 3 ");
    EXPECT_EQ(Procedures({"--sort", "impact"}, "impact"), "0 0 0 10 10 1000 1400 1510 ");
    EXPECT_EQ(
        Procedures({"modOne", "--sort", "complexity", "--descending"}), "Work Main Declarations ");
    EXPECT_EQ(Procedures({"modOne", "--sort", "lines"}), "Declarations Main Work ");
    EXPECT_EQ(Procedures({"modOne", "--sort", "comments"}), "Declarations Main Work ");
}

TEST_F(ResultsCommand, FilesAndProceduresAsCommaSeparatedValues) {
    const Lines files = Csv({"files"});
    ASSERT_EQ(files.size(), 5U);
    EXPECT_THAT(
        files[1],
        ElementsAre(
            "2",
            "modOne.bas",
            "modOne",
            Work("modOne.bas").string(),
            "Module",
            "false",
            "5",
            "2910",
            "11",
            "9",
            "2"));
    EXPECT_THAT(files[3].back(), IsEmpty());
    const Lines procedures = Csv({"procedures", "modTwo"});
    ASSERT_EQ(procedures.size(), 3U);
    EXPECT_EQ(procedures[2].at(3), "Main");
}

// ---- criteria and tolerances ----

TEST_F(ResultsCommand, CriteriaTellWithWhatAndForWhatTheProjectWasReviewed) {
    const std::string text = Show({"criteria"}).Output;
    EXPECT_THAT(
        LinesOf(text),
        AllOf(
            Contains("Rulebase      Team rules"),
            Contains("Active rules  4"),
            Contains("  keyword        yes            4"),
            Contains("  naming         no             0"),
            Contains("      1  Fatal   yes"),
            Contains("   2  Flow, and jumps"),
            Contains("  CVC      Critical Violation Count  at most 0")));
    const rapidjson::Document json = Json({"criteria"});
    EXPECT_STREQ(json["rulebase"].GetString(), "Team rules");
    EXPECT_STREQ(json["rulebaseVersion"].GetString(), "1.0.0003");
    EXPECT_EQ(std::string(json["start"].GetString()).size(), 19U);
    EXPECT_EQ(json["kinds"].Size(), 6U);
    EXPECT_TRUE(json["kinds"][2]["included"].GetBool());
    EXPECT_FALSE(json["kinds"][3]["included"].GetBool());
    EXPECT_EQ(json["severities"].Size(), 5U);
    EXPECT_STREQ(json["categories"][0]["title"].GetString(), "Flow, and jumps");
    EXPECT_EQ(json["tolerances"].Size(), 1U);
    EXPECT_THAT(
        Csv({"criteria"}),
        AllOf(
            Contains(ElementsAre("part", "name", "value", "included")),
            Contains(ElementsAre("kind", "keyword", "4", "true")),
            Contains(ElementsAre("category", "Flow, and jumps", "2", "")),
            Contains(ElementsAre("tolerance", "CVC", "0", ""))));
}

TEST_F(ResultsCommand, TolerancesTellTheLimitsAndTheFilesThatMissThem) {
    Run(
        {"review",
         "Shop.vbp",
         "--rulebase",
         "team.dvk",
         "--conventions",
         "uk",
         "--tolerance",
         "PC=5,CC=1",
         "--quiet"});
    EXPECT_THAT(
        LinesOf(Show({"tolerances"}).Output),
        ElementsAre(
            "Measure  Description               Limit       Failed in  Verdict",
            "CVC      Critical Violation Count  at most 0   1 file     failed",
            "PC       Percentage Comments       at least 5  2 files    failed",
            "CC       Cyclomatic Complexity     at most 1   1 file     failed",
            "",
            "Source file  Measure                   Actual  Limit       Verdict",
            "modOne.bas   Critical Violation Count       2  at most 0   failed",
            "modOne.bas   Cyclomatic Complexity          2  at most 1   failed",
            "Stock.cls    Percentage Comments            0  at least 5  failed",
            "modTwo.bas   Percentage Comments            0  at least 5  failed"));
    EXPECT_THAT(
        LinesOf(Show({"tolerances", "--file", "modTwo.bas"}).Output),
        Contains("modTwo.bas   Cyclomatic Complexity          1  at most 1   passed"));
    const rapidjson::Document json = Json({"tolerances"});
    EXPECT_FALSE(json["passed"].GetBool());
    EXPECT_EQ(json["tolerances"][1]["failedFiles"].GetInt(), 2);
    EXPECT_EQ(json["files"].Size(), 12U);
    EXPECT_THAT(
        Csv({"tolerances", "--file", "Stock"}),
        Contains(ElementsAre(
            "Stock.cls",
            Work("Stock.cls").string(),
            "PC",
            "Percentage Comments",
            "0",
            "5",
            "false")));
}

TEST_F(ResultsCommand, SaysSoWhereNoToleranceIsSet) {
    Run({"review", "Shop.vbp", "--rulebase", "team.dvk", "--tolerance", "CVC=none", "--quiet"});
    EXPECT_EQ(Show({"tolerances"}).Output, "No tolerance is set.\n");
    EXPECT_TRUE(Json({"tolerances"})["files"].Empty());
}

// ---- marks ----

TEST_F(ResultsCommand, CompleteAndReopenMarkViolationsAndLeaveOneFile) {
    const ProgramResult complete = Show({"complete", "1", "3", "3"});
    EXPECT_EQ(complete.ExitCode, 0) << complete.Error;
    EXPECT_EQ(complete.Output, "2 violations marked as completed.\n");
    EXPECT_EQ(Query(kDatabase, "SELECT Count(ViolationID) FROM Violations WHERE Completed"), "2");
    EXPECT_THAT(FilesBeside(), ElementsAre("Shop_DORVIK.mdb", "Shop_DORVIK.txt"));
    const ProgramResult reopen = Show({"reopen", "1"});
    EXPECT_EQ(reopen.ExitCode, 0) << reopen.Error;
    EXPECT_EQ(reopen.Output, "1 violation reopened.\n");
    EXPECT_EQ(Values({"violations", "--severity", "1"}, "violations", "id"), "1 ");
    EXPECT_EQ(Show({"reopen", "3"}).ExitCode, 0);
    EXPECT_EQ(Values({"violations", "--severity", "1"}, "violations", "id"), "1 3 ");
}

TEST_F(ResultsCommand, OneUnknownViolationLeavesAllAsTheyAre) {
    for (const char* const id : {"99", "0", "x", "1x", "99999999999"}) {
        const ProgramResult result = Show({"complete", "1", id, "3"});
        EXPECT_EQ(result.ExitCode, 2);
        EXPECT_EQ(result.Output, "");
        EXPECT_EQ(
            result.Error,
            "dorvik: the results have no violation '" + std::string(id) +
                "'; nothing was changed\n");
    }
    EXPECT_EQ(Query(kDatabase, "SELECT Count(ViolationID) FROM Violations WHERE Completed"), "0");
}

// ---- all of them ----

TEST_F(ResultsCommand, ReadingChangesNeitherTheDatabaseNorItsFolder) {
    const std::string before = Bytes(kDatabase);
    for (const char* const command :
         {"summary", "files", "procedures", "violations", "criteria", "tolerances"}) {
        for (const char* const form : {"--json", "--csv"}) {
            EXPECT_EQ(Show({command, form}).ExitCode, 0) << command << form;
        }
    }
    EXPECT_EQ(Bytes(kDatabase), before);
    EXPECT_THAT(FilesBeside(), ElementsAre("Shop_DORVIK.mdb", "Shop_DORVIK.txt"));
}

TEST_F(ResultsCommand, NoLineOfHelpIsWiderThanEightyColumns) {
    for (const char* const command :
         {"summary", "files", "procedures", "violations", "criteria", "tolerances", "complete"}) {
        const ProgramResult help = Run({"results", "DATABASE", command, "--help"});
        EXPECT_EQ(help.ExitCode, 0);
        EXPECT_THAT(help.Output, HasSubstr("dorvik results DATABASE " + std::string(command)));
        for (const std::string& line : LinesOf(help.Output)) {
            EXPECT_LE(line.size(), 80U) << line;
        }
    }
}

}  // namespace

}  // namespace dorvik::test
