#include "cli/RulebaseCommandFixture.h"
#include "support/LineText.h"

#include <gmock/gmock.h>

#include <rapidjson/document.h>

namespace dorvik::test {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class RulebaseExplainCommand : public RulebaseCommandFixture {};

}  // namespace

TEST_F(RulebaseExplainCommand, TellsEverythingAboutAKeyword) {
    EXPECT_THAT(
        LinesOf(Run({"rulebase", "explain", "team.dvk", "5000"}).Output),
        ElementsAre(
            "5000  No Stop",
            "  Kind       unauthorised keyword",
            "  Severity   2 High",
            "  Impact     500",
            "  Category   Layout",
            "  Events     30 Procedure <body>",
            "  Pattern    \\bStop\\b",
            "  Violation  Bad",
            "  Text       Text",
            "  Advice     Change it."));
}

TEST_F(RulebaseExplainCommand, AScriptHasLineNumbersAndKeepsItsBlankLines) {
    EXPECT_THAT(
        LinesOf(Run({"rulebase", "explain", "team.dvk", "has a SCRIPT"}).Output),
        ElementsAre(
            "5001  Has a script",
            "  Kind             coding convention",
            "  Active           no",
            "  Severity         3 Medium",
            "  Impact           1",
            "  Category         none",
            "  Events           28 begin Procedure, 30 Procedure <body>",
            "  Held back until  34 end Procedure",
            "  Violation        C",
            "  Text             %Procedure.Name%",
            "",
            "  Script",
            "    1  Sub Main()",
            "    2      x = 1",
            "    3",
            "    4  End Sub"));
}

TEST_F(RulebaseExplainCommand, TellsHowANameMustLook) {
    const ProgramResult result = Run({"rulebase", "explain", "team.dvk", "5002"});
    for (const char* line :
         {"  Object         Control (object type 6)\n",
          "  Events         7 Control\n",
          "  Letter case    does not count\n",
          "  Prefix         the control tag, then the text '_?'\n",
          "  Body length    at least 3, at most 30 characters\n",
          "  Exempt         Main;Test\n"}) {
        EXPECT_THAT(result.Output, HasSubstr(line));
    }
}

TEST_F(RulebaseExplainCommand, APartOfATitleFindsAllRulesThatHaveIt) {
    const ProgramResult result = Run({"rulebase", "explain", "team.dvk", "o", "--json"});
    rapidjson::Document json;
    json.Parse(result.Output.c_str());
    ASSERT_FALSE(json.HasParseError());
    EXPECT_EQ(json.Size(), 2U);
}

TEST_F(RulebaseExplainCommand, AnUnknownRuleIsToldWithTheFile) {
    for (const char* rule : {"6000", "No such title", ""}) {
        const ProgramResult result = Run({"rulebase", "explain", "team.dvk", rule});
        EXPECT_EQ(result.ExitCode, 2) << rule;
        EXPECT_THAT(result.Output, IsEmpty());
        EXPECT_THAT(
            result.Error,
            HasSubstr("the rulebase 'team.dvk' has no rule '" + std::string(rule) + "'"));
    }
}

}  // namespace dorvik::test
