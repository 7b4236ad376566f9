#include "cli/ResultsCommandFixture.h"
#include "cli/TerminalRun.h"
#include "support/LineText.h"

#include <gmock/gmock.h>

namespace dorvik::test {

namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Ge;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::SizeIs;

class ResultsViolationsCommand : public ResultsCommandFixture {
protected:
    std::string Ids(std::vector<std::string> words) const {
        words.insert(words.begin(), "violations");
        return Values(words, "violations", "id");
    }
};

TEST_F(ResultsViolationsCommand, TheTableTellsIdSeverityPlaceAndTitleWorstFirst) {
    const ProgramResult result = Show({"violations"});
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_EQ(result.Error, "");
    EXPECT_THAT(
        LinesOf(result.Output),
        ElementsAre(
            "ID  Severity  Place          Title",
            " 1  Fatal     modOne.bas:4   No Stop",
            " 3  Fatal     modOne.bas:9   No Stop",
            " 2  Medium    modOne.bas:5   No Print",
            " 7  Medium    Stock.cls:6    No Print",
            " 8  Medium    Stock.cls:7    No Print",
            " 4  Low       modOne.bas:9   Longer If",
            " 5  Info      modOne.bas:10  No Beep, please",
            " 9  Info      modTwo.bas:3   No Beep, please",
            " 6  Info      Stock.cls:3    No Beep, please"));
}

TEST_F(ResultsViolationsCommand, FiltersLeaveWhatFitsAllOfThem) {
    Change("UPDATE Violations SET RuleType = 1 WHERE ViolationID = 1");
    Change("UPDATE Violations SET RuleType = 2 WHERE ViolationID = 2");
    Change("UPDATE Violations SET RuleType = 4 WHERE ViolationID = 3");
    Change("UPDATE Violations SET RuleType = 5 WHERE ViolationID = 4");
    Change("UPDATE Violations SET RuleType = 6 WHERE ViolationID = 5");
    const struct {
        std::vector<std::string> Filters;
        const char* Ids;
    } rows[] = {
        {{"--severity", "1"}, "1 3 "},
        {{"--severity", "fatal"}, "1 3 "},
        {{"--severity", "critical"}, "1 3 "},
        {{"--severity", "3,LOW"}, "2 7 8 4 "},
        {{"--severity", "2"}, ""},
        {{"--kind", "component"}, "1 "},
        {{"--kind", "reference"}, "2 "},
        {{"--kind", "keyword"}, "7 8 9 6 "},
        {{"--kind", "coding"}, "3 "},
        {{"--kind", "naming"}, "4 "},
        {{"--kind", "documentation"}, "5 "},
        {{"--kind", "component,naming"}, "1 4 "},
        {{"--category", "layout"}, "2 7 8 4 "},
        {{"--category", "Flow, and jumps"}, "1 3 "},
        {{"--category", "2"}, "1 3 "},
        {{"--category", "none"}, "5 9 6 "},
        {{"--category", "2", "--category", "none"}, "1 3 5 9 6 "},
        {{"--file", "modOne.bas"}, "1 3 2 4 5 "},
        {{"--file", "MODTWO"}, "9 "},
        {{"--procedure", "main"}, "1 2 9 "},
        {{"--procedure", "Main", "--file", "modTwo.bas"}, "9 "},
        {{"--procedure", "Rate"}, "7 8 6 "},
        {{"--procedure", "Rate (Get)"}, "6 "},
        {{"--procedure", "Declarations"}, ""},
        {{"--file", "Stock", "--severity", "3", "--kind", "keyword", "--category", "1"}, "7 8 "},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Ids(row.Filters), row.Ids) << testing::PrintToString(row.Filters);
    }
}

TEST_F(ResultsViolationsCommand, AFileIsNamedByItsPathToo) {
    EXPECT_EQ(Ids({"--file", Work("modTwo.bas").string()}), "9 ");
    EXPECT_EQ(Ids({"--file", "./modTwo.bas"}), "9 ");
    EXPECT_EQ(Ids({"--file", "work/modTwo.bas"}), "9 ");
}

TEST_F(ResultsViolationsCommand, ACategoryThatTheReviewDoesNotListIsOfNoOther) {
    Change("UPDATE Violations SET CategoryID = 77 WHERE ViolationID = 2");
    EXPECT_EQ(Ids({"--category", "Layout"}), "7 8 4 ");
    EXPECT_EQ(Ids({"--category", "none"}), "5 9 6 ");
    EXPECT_THAT(Show({"violations", "--long"}).Output, HasSubstr("unknown (77)"));
}

TEST_F(ResultsViolationsCommand, AFileHasItsOwnViolationsAndThoseOfItsProcedures) {
    Change("UPDATE Violations SET ItemID = 2, ItemType = 2 WHERE ViolationID = 9");
    EXPECT_EQ(Ids({"--file", "modOne.bas"}), "1 3 2 4 9 5 ");
    EXPECT_EQ(Ids({"--file", "modTwo.bas"}), "");
}

TEST_F(ResultsViolationsCommand, ViolationsOfTheProjectStandAtTheProjectFile) {
    Change("UPDATE Violations SET ItemID = 1, ItemType = 1, LineNum = 0 WHERE ViolationID = 9");
    Change("UPDATE Violations SET ItemID = 1, ItemType = 2, LineNum = 0 WHERE ViolationID = 6");
    EXPECT_THAT(
        LinesOf(Show({"violations"}).Output),
        Contains(" 9  Info      Shop.vbp       No Beep, please"));
    EXPECT_EQ(Ids({"--file", "Shop.vbp"}), "6 ");
}

TEST_F(ResultsViolationsCommand, EachSortKeyOrdersAndTheDefaultOrderDecidesTheRest) {
    const struct {
        const char* Key;
        const char* Ascending;
        const char* Descending;
    } rows[] = {
        {"severity", "1 3 2 7 8 4 5 9 6 ", "5 9 6 4 2 7 8 1 3 "},
        {"file", "1 3 2 4 5 9 7 8 6 ", "7 8 6 9 1 3 2 4 5 "},
        {"line", "9 6 1 2 7 8 3 4 5 ", "5 3 4 8 7 2 1 9 6 "},
        {"id", "1 2 3 4 5 6 7 8 9 ", "9 8 7 6 5 4 3 2 1 "},
        {"impact", "5 9 6 2 7 8 4 1 3 ", "1 3 4 2 7 8 5 9 6 "},
        {"rule", "1 3 2 7 8 5 9 6 4 ", "4 5 9 6 2 7 8 1 3 "},
        {"title", "4 5 9 6 2 7 8 1 3 ", "1 3 2 7 8 5 9 6 4 "},
        {"procedure", "1 2 9 6 7 8 3 4 5 ", "3 4 5 7 8 6 1 2 9 "},
        {"category", "1 3 2 7 8 4 5 9 6 ", "5 9 6 2 7 8 4 1 3 "},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Ids({"--sort", row.Key}), row.Ascending) << row.Key;
        EXPECT_EQ(Ids({"--sort", row.Key, "--descending"}), row.Descending) << row.Key;
    }
}

TEST_F(ResultsViolationsCommand, CompletedOnesAreShownOnlyWhenAskedFor) {
    EXPECT_EQ(Show({"complete", "1", "9"}).ExitCode, 0);
    EXPECT_EQ(Ids({}), "3 2 7 8 4 5 6 ");
    EXPECT_EQ(Ids({"--severity", "1"}), "3 ");
    EXPECT_EQ(Ids({"--severity", "1", "--include-completed"}), "1 3 ");
    EXPECT_THAT(
        LinesOf(Show({"violations", "--include-completed"}).Output),
        Contains(" 1  Fatal     modOne.bas:4   No Stop (completed)"));
    const rapidjson::Document json = Json({"violations", "--include-completed"});
    EXPECT_TRUE(json["violations"][0]["completed"].GetBool());
    EXPECT_FALSE(json["violations"][1]["completed"].GetBool());
}

TEST_F(ResultsViolationsCommand, SaysSoWhereNothingFits) {
    EXPECT_EQ(Show({"violations", "--severity", "2"}).Output, "No violations.\n");
    EXPECT_EQ(Show({"violations", "--severity", "2", "--long"}).Output, "No violations.\n");
    EXPECT_TRUE(Json({"violations", "--severity", "2"})["violations"].Empty());
    EXPECT_THAT(Csv({"violations", "--severity", "2"}), SizeIs(1));
}

TEST_F(ResultsViolationsCommand, LongTellsAllTextsOfEach) {
    Change("UPDATE Violations SET Loc = 5, LocMember = 'txtRate' WHERE ViolationID = 7");
    EXPECT_THAT(
        LinesOf(Show({"violations", "--procedure", "rate", "--severity", "3", "--long"}).Output),
        ElementsAre(
            "7  Medium  Stock.cls:6  No Print",
            "  Procedure    Rate (Let)",
            "  Source line  Debug.Print Value",
            "  Control      txtRate",
            "  Description  It says \"No Print\", it does.",
            "  Advice       Change it.",
            "  Rule         [5001] keyword",
            "  Category     Layout",
            "  Impact       500",
            "",
            "8  Medium  Stock.cls:7  No Print",
            "  Procedure    Rate (Let)",
            "  Source line  Debug.Print Value",
            "  Description  It says \"No Print\", it does.",
            "  Advice       Change it.",
            "  Rule         [5001] keyword",
            "  Category     Layout",
            "  Impact       500"));
}

TEST_F(ResultsViolationsCommand, JsonHasEveryFactOfAViolation) {
    const rapidjson::Document json = Json({"violations", "--sort", "id"});
    EXPECT_EQ(json["database"].GetString(), Work(kDatabase).string());
    EXPECT_STREQ(json["project"].GetString(), "Shop");
    ASSERT_EQ(json["violations"].Size(), 9U);
    const auto& violation = json["violations"][1];
    EXPECT_EQ(violation["id"].GetInt(), 2);
    EXPECT_EQ(violation["severity"].GetInt(), 3);
    EXPECT_STREQ(violation["severityTitle"].GetString(), "Medium");
    EXPECT_STREQ(violation["file"].GetString(), "modOne.bas");
    EXPECT_EQ(violation["path"].GetString(), Work("modOne.bas").string());
    EXPECT_EQ(violation["line"].GetInt(), 5);
    EXPECT_STREQ(violation["procedure"].GetString(), "Main");
    EXPECT_STREQ(violation["member"].GetString(), "Main");
    EXPECT_STREQ(violation["title"].GetString(), "No Print");
    EXPECT_EQ(violation["impact"].GetInt(), 500);
    EXPECT_EQ(violation["rule"].GetInt(), 5001);
    EXPECT_STREQ(violation["kind"].GetString(), "keyword");
    EXPECT_EQ(violation["category"].GetInt(), 1);
    EXPECT_STREQ(violation["categoryTitle"].GetString(), "Layout");
    EXPECT_STREQ(violation["description"].GetString(), "It says \"No Print\", it does.");
    EXPECT_STREQ(violation["advice"].GetString(), "Change it.");
    EXPECT_STREQ(violation["sourceLine"].GetString(), "    Debug.Print \"a,b\"");
    EXPECT_FALSE(violation["completed"].GetBool());
}

TEST_F(ResultsViolationsCommand, AViolationWithoutALineHasNoneInJson) {
    Change("UPDATE Violations SET LineNum = 0 WHERE ViolationID = 1");
    EXPECT_TRUE(Json({"violations", "--sort", "id"})["violations"][0]["line"].IsNull());
}

TEST_F(ResultsViolationsCommand, CommaSeparatedValuesSayTheSameAsJson) {
    Change("UPDATE Violations SET LineNum = 0, Advice = 'a \"b\", c\r\nd' WHERE ViolationID = 1");
    const Lines lines = Csv({"violations"});
    const rapidjson::Document json = Json({"violations"});
    ASSERT_EQ(lines.size(), json["violations"].Size() + 1);
    for (rapidjson::SizeType row = 0; row < json["violations"].Size(); ++row) {
        std::size_t column = 0;
        for (const auto& member : json["violations"][row].GetObject()) {
            EXPECT_EQ(lines[0].at(column), member.name.GetString());
            const auto& value = member.value;
            const std::string text = value.IsNull()     ? ""
                                     : value.IsString() ? value.GetString()
                                     : value.IsBool()   ? (value.GetBool() ? "true" : "false")
                                                        : std::to_string(value.GetInt());
            EXPECT_EQ(lines[row + 1].at(column), text);
            ++column;
        }
        EXPECT_EQ(lines[row + 1].size(), column);
    }
    EXPECT_THAT(lines[1], Contains("a \"b\", c\r\nd"));
}

TEST_F(ResultsViolationsCommand, NoLineIsWiderThanTheTerminal) {
    Change(
        "UPDATE Violations SET Title = 'A very long title that goes on and on and on without ever "
        "coming to its end, so that it needs several lines', Advice = 'Too long as well, by some "
        "margin, and for that reason broken at a blank in good time' WHERE Severity = 1");
    Change("UPDATE SourceFiles SET Filename = 'modTheVeryLongestNameAnybodyEverGaveAModule.bas' "
           "WHERE SourceID = 2");
    for (const unsigned short width : {80, 60}) {
        for (const char* const form : {"--descending", "--long"}) {
            const std::string shown = RunInTerminal(
                {"results", kDatabase, "violations", form},
                Work(""),
                Work(""),
                width,
                "NO_COLOR=1");
            EXPECT_THAT(LinesOf(shown), SizeIs(Ge(10U)));
            for (const std::string& line : LinesOf(shown)) {
                EXPECT_LE(line.size(), width + 1U) << line;  // the terminal adds a carriage return
            }
        }
    }
}

TEST_F(ResultsViolationsCommand, ColoursComeOnATerminalOnlyAndNotAgainstNoColor) {
    const std::vector<std::string> command{"results", kDatabase, "violations"};
    EXPECT_THAT(
        RunInTerminal(command, Work(""), Work(""), 80),
        AllOf(HasSubstr("\x1b[31mFatal\x1b[0m"), HasSubstr("\x1b[33mMedium\x1b[0m")));
    EXPECT_THAT(
        RunInTerminal(command, Work(""), Work(""), 80, "NO_COLOR=1"), Not(HasSubstr("\x1b[")));
    EXPECT_THAT(Run(command).Output, Not(HasSubstr("\x1b[")));
}

TEST_F(ResultsViolationsCommand, NoTextOutOfTheDatabaseCanSteerTheTerminal) {
    Change("UPDATE Violations SET Title = 'a\x1b[2Jb', SourceLine = 'c\x07"
           "d\te'");
    const std::string output = Show({"violations", "--long"}).Output + Show({"summary"}).Output;
    EXPECT_EQ(output.find_first_of("\x1b\x07\t"), std::string::npos);
    EXPECT_THAT(output, HasSubstr("a\\x1B[2Jb"));
}

}  // namespace

}  // namespace dorvik::test
