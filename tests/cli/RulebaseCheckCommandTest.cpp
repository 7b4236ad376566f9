#include "cli/RulebaseCommandFixture.h"

#include <gmock/gmock.h>

#include <rapidjson/document.h>

namespace dorvik::test {

namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

class RulebaseCheckCommand : public RulebaseCommandFixture {
protected:
    void WriteFlawed(const std::string& name) const {
        RulebaseText text = Team();
        text.Keywords =
            "<UnauthorisedKeywords>" + KeywordElement("5000", 3, 9) + "</UnauthorisedKeywords>";
        WriteBytes(name, text.Text());
    }
};

}  // namespace

TEST_F(RulebaseCheckCommand, IsSilentWhereNothingIsWrong) {
    for (const char* file : {"team.dvk", DORVIK_RULEBASE}) {
        const ProgramResult result = Run({"rulebase", "check", file});
        EXPECT_EQ(result.ExitCode, 0) << result.Output;
        EXPECT_THAT(result.Output, IsEmpty());
        EXPECT_THAT(result.Error, IsEmpty());
    }
}

TEST_F(RulebaseCheckCommand, TellsFileRulePlaceAndReasonOnOneLineAndEndsWithOne) {
    WriteFlawed("bad.dvk");
    const ProgramResult result = Run({"rulebase", "check", "bad.dvk"});
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_EQ(
        result.Output,
        "bad.dvk: UnauthorisedKeyword 5000 'No Stop', ViolationDefinition CategoryID: there is no "
        "category 9\n");
    EXPECT_THAT(result.Error, IsEmpty());
}

TEST_F(RulebaseCheckCommand, JsonHasTheKindAndTheRule) {
    WriteFlawed("bad.dvk");
    const ProgramResult result = Run({"rulebase", "check", "bad.dvk", "--json"});
    EXPECT_EQ(result.ExitCode, 1);
    rapidjson::Document json;
    json.Parse(result.Output.c_str());
    ASSERT_FALSE(json.HasParseError());
    ASSERT_EQ(json.Size(), 1U);
    EXPECT_STREQ(json[0]["kind"].GetString(), "unknown");
    EXPECT_EQ(json[0]["rule"].GetInt(), 5000);
    EXPECT_STREQ(json[0]["file"].GetString(), "bad.dvk");
    EXPECT_EQ(Run({"rulebase", "check", "team.dvk", "--json"}).Output, "[]\n");
}

TEST_F(RulebaseCheckCommand, SeveralFilesAreCheckedAndTheWorstDecides) {
    WriteFlawed("bad.dvk");
    const ProgramResult both = Run({"rulebase", "check", "bad.dvk", "team.dvk"});
    EXPECT_EQ(both.ExitCode, 1);
    const ProgramResult result = Run({"rulebase", "check", "missing.dvk", "bad.dvk"});
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_THAT(result.Error, HasSubstr("the rulebase 'missing.dvk' does not exist"));
    EXPECT_THAT(result.Output, HasSubstr("there is no category 9"));
}

TEST_F(RulebaseCheckCommand, MissingSectionsAreFindings) {
    WriteBytes("bare.dvk", "<Dorvik_Rulebase SchemaVersion=\"6.2\"/>");
    const ProgramResult result = Run({"rulebase", "check", "bare.dvk"});
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_THAT(
        result.Output, HasSubstr("bare.dvk: Dorvik_Rulebase: the element 'Rules' is missing"));
}

TEST_F(RulebaseCheckCommand, AFileIsNotChanged) {
    RulebaseText text = Team();
    text.SchemaVersion = "6.1";
    WriteBytes("old.dvk", text.Text());
    Run({"rulebase", "check", "old.dvk"});
    EXPECT_EQ(Bytes("old.dvk"), text.Text());
}

}  // namespace dorvik::test
