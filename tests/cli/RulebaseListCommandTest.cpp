#include "cli/RulebaseCommandFixture.h"
#include "support/LineText.h"

#include <gmock/gmock.h>

#include <rapidjson/document.h>

namespace dorvik::test {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class RulebaseListCommand : public RulebaseCommandFixture {
protected:
    /// The numbers of the rules that the filters leave.
    std::string Numbers(std::vector<std::string> filters) const {
        std::vector<std::string> arguments{"rulebase", "list", "team.dvk", "--json"};
        arguments.insert(arguments.end(), filters.begin(), filters.end());
        const ProgramResult result = Run(arguments);
        EXPECT_EQ(result.ExitCode, 0) << result.Error;
        rapidjson::Document json;
        json.Parse(result.Output.c_str());
        EXPECT_FALSE(json.HasParseError()) << result.Output;
        std::string numbers;
        for (const auto& rule : json["rules"].GetArray()) {
            numbers += std::to_string(rule["id"].GetInt()) + " ";
        }
        return numbers;
    }
};

}  // namespace

TEST_F(RulebaseListCommand, PrintsTheRulesAsATable) {
    EXPECT_THAT(
        LinesOf(Run({"rulebase", "list", "team.dvk"}).Output),
        ElementsAre(
            "Rule  Kind     Severity  Category  Title",
            "5000  keyword  High      Layout    No Stop",
            "5001  coding   Medium    none      Has a script (off)",
            "5002  naming   Low       Layout    Text boxes"));
}

TEST_F(RulebaseListCommand, FiltersLeaveWhatFitsAllOfThem) {
    EXPECT_EQ(Numbers({}), "5000 5001 5002 ");
    EXPECT_EQ(Numbers({"--kind", "naming"}), "5002 ");
    EXPECT_EQ(Numbers({"--kind", "keyword,coding"}), "5000 5001 ");
    EXPECT_EQ(Numbers({"--severity", "3,4"}), "5001 5002 ");
    EXPECT_EQ(Numbers({"--category", "layout"}), "5000 5002 ");
    EXPECT_EQ(Numbers({"--category", "1"}), "5000 5002 ");
    EXPECT_EQ(Numbers({"--category", "none"}), "5001 ");
    EXPECT_EQ(Numbers({"--event", "30"}), "5000 5001 ");
    EXPECT_EQ(Numbers({"--event", "begin procedure"}), "5001 ");
    EXPECT_EQ(Numbers({"--event", "Control"}), "5002 ");
    EXPECT_EQ(Numbers({"--event", "30", "--severity", "2"}), "5000 ");
    EXPECT_EQ(Numbers({"--event", "1"}), "");
}

TEST_F(RulebaseListCommand, SaysSoWhereNoRuleFits) {
    const ProgramResult result = Run({"rulebase", "list", "team.dvk", "--event", "1"});
    EXPECT_EQ(result.ExitCode, 0);
    EXPECT_EQ(result.Output, "No rules.\n");
}

TEST_F(RulebaseListCommand, JsonHasEverythingAboutARule) {
    rapidjson::Document json;
    json.Parse(Run({"rulebase", "list", "team.dvk", "--json"}).Output.c_str());
    ASSERT_FALSE(json.HasParseError());
    EXPECT_STREQ(json["title"].GetString(), "Team rules");
    const auto& keyword = json["rules"][0];
    EXPECT_STREQ(keyword["kind"].GetString(), "keyword");
    EXPECT_STREQ(keyword["condition"].GetString(), "\\bStop\\b");
    EXPECT_EQ(keyword["events"][0]["number"].GetInt(), 30);
    EXPECT_STREQ(keyword["violation"]["advice"].GetString(), "Change it.");
    const auto& coding = json["rules"][1];
    EXPECT_FALSE(coding["active"].GetBool());
    EXPECT_TRUE(coding["pending"].GetBool());
    EXPECT_EQ(coding["endEvent"].GetInt(), 34);
    EXPECT_STREQ(coding["condition"].GetString(), "Sub Main()\r\n\tx = 1\r\n\r\nEnd Sub");
    const auto& naming = json["rules"][2];
    EXPECT_STREQ(naming["object"].GetString(), "Control");
    EXPECT_EQ(naming["prefix"].Size(), 2U);
    EXPECT_STREQ(naming["exclusionList"].GetString(), "Main;Test");
    EXPECT_EQ(naming["events"][0]["number"].GetInt(), 7);
}

TEST_F(RulebaseListCommand, AFilterThatNamesNothingIsWrongUse) {
    const ProgramResult category = Run({"rulebase", "list", "team.dvk", "--category", "Colours"});
    EXPECT_EQ(category.ExitCode, 2);
    EXPECT_THAT(category.Error, HasSubstr("the rulebase 'team.dvk' has no category 'Colours'"));
    const ProgramResult event = Run({"rulebase", "list", "team.dvk", "--event", "38"});
    EXPECT_EQ(event.ExitCode, 2);
    EXPECT_THAT(event.Error, HasSubstr("there is no event '38'"));
    EXPECT_EQ(Run({"rulebase", "list", "team.dvk", "--kind", "odd"}).ExitCode, 2);
    EXPECT_EQ(Run({"rulebase", "list", "team.dvk", "--severity", "6"}).ExitCode, 2);
}

TEST_F(RulebaseListCommand, NoLineIsWiderThanEightyColumnsWithoutATerminal) {
    const ProgramResult result = Run({"rulebase", "list", DORVIK_RULEBASE});
    EXPECT_EQ(result.ExitCode, 0);
    EXPECT_THAT(result.Error, IsEmpty());
    for (const std::string& line : LinesOf(result.Output)) {
        EXPECT_LE(line.size(), 80U) << line;
        EXPECT_EQ(line.find('\x1b'), std::string::npos) << line;
    }
}

}  // namespace dorvik::test
