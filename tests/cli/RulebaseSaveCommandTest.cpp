#include "cli/RulebaseCommandFixture.h"

#include <gmock/gmock.h>

namespace dorvik::test {

namespace {

using ::testing::HasSubstr;

class RulebaseSaveCommand : public RulebaseCommandFixture {
protected:
    /// The file without its version, which each save increments.
    std::string WithoutVersion(const std::string& name) const {
        std::string bytes = Bytes(name);
        const std::size_t start = bytes.find(" Version=\"");
        bytes.erase(start, bytes.find('"', start + 10) - start + 1);
        return bytes;
    }
};

}  // namespace

TEST_F(RulebaseSaveCommand, ASecondRoundTripChangesNothingButTheVersion) {
    const ProgramResult first = Run({"rulebase", "save", "team.dvk", "--to", "one.dvk"});
    EXPECT_EQ(first.ExitCode, 0) << first.Error;
    EXPECT_EQ(first.Output, "Saved 'one.dvk' as version 1.0.0004.\n");
    EXPECT_EQ(Run({"rulebase", "save", "one.dvk", "--to", "two.dvk"}).ExitCode, 0);
    EXPECT_EQ(WithoutVersion("one.dvk"), WithoutVersion("two.dvk"));
    EXPECT_THAT(Bytes("two.dvk"), HasSubstr("Version=\"1.0.0005\""));
    EXPECT_EQ(
        Run({"rulebase", "list", "team.dvk"}).Output, Run({"rulebase", "list", "two.dvk"}).Output);
}

TEST_F(RulebaseSaveCommand, AnOlderFileBecomesACurrentOne) {
    RulebaseText text = Team();
    text.SchemaVersion = "6.1";
    WriteBytes("old.dvk", text.Text());
    EXPECT_EQ(Run({"rulebase", "save", "old.dvk", "--to", "new.dvk"}).ExitCode, 0);
    EXPECT_THAT(Bytes("new.dvk"), HasSubstr("SchemaVersion=\"6.2\""));
    EXPECT_EQ(Bytes("old.dvk"), text.Text());
}

TEST_F(RulebaseSaveCommand, HiddenCategoriesAndTheReportSurvive) {
    RulebaseText text = Team();
    text.Categories.replace(text.Categories.find("False"), 5, "True");
    text.Report =
        R"(<Report><Section SectionType="Category" CategoryID="1" CategoryRuleList="5000"/></Report>)";
    WriteBytes("team.dvk", text.Text());
    Run({"rulebase", "save", "team.dvk", "--to", "one.dvk"});
    EXPECT_THAT(Bytes("one.dvk"), HasSubstr("Hidden=\"True\""));
    EXPECT_THAT(Bytes("one.dvk"), HasSubstr("CategoryRuleList=\"5000\""));
}

TEST_F(RulebaseSaveCommand, WhatCannotBeReadIsToldAndNotLostInTheFileItself) {
    RulebaseText text = Team();
    text.Keywords = "<UnauthorisedKeywords>" + KeywordElement("x") + "</UnauthorisedKeywords>";
    WriteBytes("torn.dvk", text.Text());
    const ProgramResult other = Run({"rulebase", "save", "torn.dvk", "--to", "other.dvk"});
    EXPECT_EQ(other.ExitCode, 3);
    EXPECT_THAT(other.Error, HasSubstr("note: 1 part of 'torn.dvk' cannot be read"));
    const ProgramResult itself = Run({"rulebase", "save", "torn.dvk", "--to", "torn.dvk"});
    EXPECT_EQ(itself.ExitCode, 2);
    EXPECT_EQ(Bytes("torn.dvk"), text.Text());
}

TEST_F(RulebaseSaveCommand, SaysWhereItCannotWrite) {
    const ProgramResult result = Run({"rulebase", "save", "team.dvk", "--to", "no/such.dvk"});
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_THAT(
        result.Error, HasSubstr("the rulebase 'no/such.dvk' cannot be written: Invalid path"));
    EXPECT_EQ(Run({"rulebase", "save", "team.dvk"}).ExitCode, 2) << "without a target";
}

}  // namespace dorvik::test
