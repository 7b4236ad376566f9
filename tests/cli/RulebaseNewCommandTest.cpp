#include "cli/RulebaseCommandFixture.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace dorvik::test {

namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

class RulebaseNewCommand : public RulebaseCommandFixture {};

}  // namespace

TEST_F(RulebaseNewCommand, WritesACompleteRulebaseThatPassesTheCheck) {
    const ProgramResult result = Run({"rulebase", "new", "mine.dvk", "--title", "A & <b>"});
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_EQ(result.Output, "New rulebase 'mine.dvk', version 1.0.0001.\n");
    EXPECT_EQ(Run({"rulebase", "check", "mine.dvk"}).ExitCode, 0);
    const std::string shown = Run({"rulebase", "show", "mine.dvk"}).Output;
    EXPECT_THAT(shown, HasSubstr("Title    A & <b>\n"));
    EXPECT_THAT(Bytes("mine.dvk"), HasSubstr("TagName=\"VB.TextBox\" TagValue=\"txt\""));
}

TEST_F(RulebaseNewCommand, NeverReplacesAFileUnlessForced) {
    const std::string before = Bytes("team.dvk");
    const ProgramResult refused = Run({"rulebase", "new", "team.dvk"});
    EXPECT_EQ(refused.ExitCode, 2);
    EXPECT_THAT(refused.Error, HasSubstr("'team.dvk' already exists and was not overwritten"));
    EXPECT_EQ(Bytes("team.dvk"), before);
    EXPECT_EQ(Run({"rulebase", "new", "TEAM.DVK"}).ExitCode, 2) << "in another case";
    EXPECT_EQ(Run({"rulebase", "new", "team.dvk", "--force"}).ExitCode, 0);
    EXPECT_NE(Bytes("team.dvk"), before);
}

TEST_F(RulebaseNewCommand, SaysWhereItCannotWrite) {
    std::filesystem::create_directory(Work("folder"));
    EXPECT_THAT(Run({"rulebase", "new", "folder"}).Error, HasSubstr("'folder' is a folder"));
    const ProgramResult result = Run({"rulebase", "new", "nowhere/mine.dvk"});
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_THAT(
        result.Error, HasSubstr("the rulebase 'nowhere/mine.dvk' cannot be written: Invalid path"));
    EXPECT_THAT(result.Output, IsEmpty());
}

}  // namespace dorvik::test
