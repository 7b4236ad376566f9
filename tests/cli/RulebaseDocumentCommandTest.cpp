#include "cli/RulebaseCommandFixture.h"

#include <gmock/gmock.h>

namespace dorvik::test {

namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

class RulebaseDocumentCommand : public RulebaseCommandFixture {};

}  // namespace

TEST_F(RulebaseDocumentCommand, WritesOnePage) {
    const ProgramResult result = Run({"rulebase", "document", "team.dvk", "--to", "team.html"});
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_THAT(result.Output, IsEmpty());
    EXPECT_THAT(Bytes("team.html"), StartsWith("<!DOCTYPE html>"));
    EXPECT_THAT(Bytes("team.html"), HasSubstr("<h3>No Stop</h3>"));
    EXPECT_THAT(Bytes("team.html"), HasSubstr("<pre>Sub Main()\r\n\tx = 1"));
}

TEST_F(RulebaseDocumentCommand, HasTheSectionsOfTheReportDefinition) {
    RulebaseText text = Team();
    text.Report =
        R"(<Report><Section SectionType="Table" TableKey="ScopeTags" TableText="" TableTitle="Scopes of ours" TableType="1"/></Report>)";
    WriteBytes("team.dvk", text.Text());
    Run({"rulebase", "document", "team.dvk", "--to", "team.html"});
    EXPECT_THAT(Bytes("team.html"), HasSubstr("<h2>Scopes of ours</h2>"));
    EXPECT_THAT(Bytes("team.html"), ::testing::Not(HasSubstr("No Stop")));
}

TEST_F(RulebaseDocumentCommand, NeverReplacesTheRulebaseItself) {
    const std::string before = Bytes("team.dvk");
    const ProgramResult result = Run({"rulebase", "document", "team.dvk", "--to", "./team.dvk"});
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_EQ(Bytes("team.dvk"), before);
}

TEST_F(RulebaseDocumentCommand, SaysWhereItCannotWrite) {
    const ProgramResult result = Run({"rulebase", "document", "team.dvk", "--to", "no/such.html"});
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_THAT(result.Error, HasSubstr("the file 'no/such.html' cannot be written: "));
    ExpectClearSentences(result);
    EXPECT_EQ(Run({"rulebase", "document", "missing.dvk", "--to", "x.html"}).ExitCode, 2);
    EXPECT_FALSE(Exists("x.html"));
}

}  // namespace dorvik::test
